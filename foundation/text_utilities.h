// Small operations on texts: changes in place, questions, and the comparison of keywords.
// Nothing is allocated. A null text, and mostly an empty one, is answered with false.
#pragma once

namespace tavrel {

/// Whether the texts are equal, whole, regardless of the case of the letters A to Z.
bool equalsIgnoringCase(const char* first, const char* second);

/// Replaces every character equal to `from` by `to`. False for a null text.
bool replaceChar(char* text, char from, char to);

/// Turns every letter into a capital. False for a null or empty text.
bool toUpper(char* text);

/// Turns every letter into a small one. False for a null or empty text.
bool toLower(char* text);

/// Turns the first character into a capital. False for a null or empty text.
bool upperFirst(char* text);

/// Whether the text consists of decimal digits alone. False for a null or empty text.
bool isAllDigits(const char* text);

/// Whether the text holds both a small letter and a capital. False for a null text.
bool isMixedCase(const char* text);

}  // namespace tavrel
