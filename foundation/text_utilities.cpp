#include "foundation/text_utilities.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace tavrel {

namespace {

// <cctype> is defined for the values of unsigned char only.
bool isDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }
bool isSmall(char c) { return std::islower(static_cast<unsigned char>(c)) != 0; }
bool isCapital(char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; }
char capital(char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }
char small(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool isNullOrEmpty(const char* text) { return text == nullptr || *text == '\0'; }

char foldCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool equalsIgnoringCase(const char* first, const char* second) {
  if (first == nullptr || second == nullptr) {
    return false;
  }
  while (*first != '\0' && foldCase(*first) == foldCase(*second)) {
    ++first;
    ++second;
  }
  return foldCase(*first) == foldCase(*second);
}

bool replaceChar(char* text, char from, char to) {
  if (text == nullptr) {
    return false;
  }
  for (; *text != '\0'; ++text) {
    if (*text == from) {
      *text = to;
    }
  }
  return true;
}

bool toUpper(char* text) {
  if (isNullOrEmpty(text)) {
    return false;
  }
  for (; *text != '\0'; ++text) {
    *text = capital(*text);
  }
  return true;
}

bool toLower(char* text) {
  if (isNullOrEmpty(text)) {
    return false;
  }
  for (; *text != '\0'; ++text) {
    *text = small(*text);
  }
  return true;
}

bool upperFirst(char* text) {
  if (isNullOrEmpty(text)) {
    return false;
  }
  *text = capital(*text);
  return true;
}

bool isAllDigits(const char* text) {
  if (isNullOrEmpty(text)) {
    return false;
  }
  const std::string_view all = text;
  return std::all_of(all.begin(), all.end(), isDigit);
}

bool isMixedCase(const char* text) {
  if (isNullOrEmpty(text)) {
    return false;
  }
  const std::string_view all = text;
  return std::any_of(all.begin(), all.end(), isSmall) &&
         std::any_of(all.begin(), all.end(), isCapital);
}

}  // namespace tavrel
