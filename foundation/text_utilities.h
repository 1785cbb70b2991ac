// Small operations on zero-terminated strings: changes in place, tests, and the comparison of
// keywords. Nothing is allocated. Unless stated otherwise, null and the empty string return false.
#pragma once

namespace tavrel {

/// Returns true if the strings are equal, regardless of the case of the letters A to Z. Null equals
/// nothing; two empty strings are equal.
bool equalsIgnoringCase(const char* first, const char* second);

/// Turns every letter into a capital.
bool toUpper(char* text);

/// Replaces every `from` by `to`. Returns true for the empty string.
bool replaceChar(char* text, char from, char to);

// Not used by the tool; for programs that generate names.

/// Turns every letter into a small one.
bool toLower(char* text);

/// Turns the first character into a capital.
bool upperFirst(char* text);

/// Returns true if the text has decimal digits only.
bool isAllDigits(const char* text);

/// Returns true if the text has both small letters and capitals.
bool isMixedCase(const char* text);

}  // namespace tavrel
