#include "foundation/token_file.h"

#include <algorithm>
#include <cstring>

#include "foundation/console.h"
#include "foundation/disk_file.h"
#include "foundation/text_utilities.h"

namespace tavrel {

namespace {

constexpr char kComment = ';';

bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool isLineEnd(char c) { return c == '\r' || c == '\n'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isWhiteSpace(char c) { return c == '\v' || c == '\f'; }  // that a token can have

/// Returns the decimal number at the start of `text`, modulo 2 to the power 32.
std::int32_t decimalValue(const char* text) {
  while (isWhiteSpace(*text)) {
    ++text;
  }
  const bool negative = *text == '-';
  if (*text == '-' || *text == '+') {
    ++text;
  }
  std::uint32_t value = 0;
  for (; isDigit(*text); ++text) {
    value = value * 10 + static_cast<std::uint32_t>(*text - '0');
  }
  return static_cast<std::int32_t>(negative ? 0 - value : value);
}

}  // namespace

TokenFile::TokenFile() { fileName.setPath(""); }

TokenFile::TokenFile(const char* name) : TokenFile(name, "") {}

TokenFile::TokenFile(const char* name, const char* path) : fileName(name, path) {}

bool TokenFile::load() {
  DiskFile disk(modeRead, fileName.getNameAndPath(), "");
  ByteBlock text;
  std::uint32_t size = 0;
  const DiskFile::WholeRead result = disk.readImage(text, size);
  if (disk.reportError() || result != DiskFile::WholeRead::complete) {
    return false;
  }
  data_ = text.release();
  cursor_ = data_;
  dataEnd_ = data_ + size;
  return true;
}

bool TokenFile::freeData() {
  freeBlock(data_);
  data_ = cursor_ = dataEnd_ = nullptr;
  return true;
}

bool TokenFile::isDelimiter(char character) {
  return isBlank(character) || isLineEnd(character) || character == kComment;
}

bool TokenFile::readToken() {
  const bool found = skipToToken();
  // skipToToken has left the cursor_ on a character of the token, or at the end.
  tokenStart_ = static_cast<std::size_t>(cursor_ - data_);
  if (!found) {
    return false;
  }
  std::size_t length = 0;
  char character = '\0';
  while (peekChar(character)) {
    if (isDelimiter(character)) {
      token[length] = '\0';
      return true;
    }
    ++cursor_;
    if (length == kLongestToken) {
      reportOversizedToken();
      return false;
    }
    token[length++] = character;
  }
  return false;
}

bool TokenFile::skipToToken() {
  char character = '\0';
  while (peekChar(character)) {
    if (!isDelimiter(character)) {
      return true;
    }
    const bool more = isBlank(character)     ? skipBlanks()
                      : isLineEnd(character) ? skipLineEnd()
                                             : skipComment();
    if (!more) {
      return false;
    }
  }
  return false;
}

bool TokenFile::peekChar(char& character) const {
  if (cursor_ == dataEnd_) {
    return false;
  }
  character = static_cast<char>(*cursor_);
  return true;
}

bool TokenFile::nextChar(char& character) {
  if (!peekChar(character)) {
    return false;
  }
  ++cursor_;
  return true;
}

bool TokenFile::skipBlanks() {
  char character = '\0';
  while (peekChar(character)) {
    if (!isBlank(character)) {
      return true;
    }
    ++cursor_;
  }
  return false;
}

bool TokenFile::skipLineEnd() {
  ++cursor_;
  char character = '\0';
  if (!peekChar(character)) {
    return false;
  }
  if (character == '\n') {
    ++cursor_;
  }
  lineNumber = static_cast<std::int16_t>(lineNumber + 1);
  return true;
}

bool TokenFile::skipComment() {
  char character = '\0';
  while (peekChar(character)) {
    if (isLineEnd(character)) {
      return true;
    }
    ++cursor_;
  }
  return false;
}

void TokenFile::reportOversizedToken() const {
  printLine(stderr, "File: ", textOrEmpty(fileName.name), " Line #: ", lineNumber,
            " has an oversize token, only ", static_cast<std::uint32_t>(kLongestToken),
            " chars allowed per token");
}

bool TokenFile::readTokenInto(char* destination) {
  if (!readToken()) {
    return false;
  }
  std::strcpy(destination, token.data());
  return true;
}

bool TokenFile::readNumber(std::int32_t& number) {
  if (!readToken()) {
    return false;
  }
  number = decimalValue(token.data());
  return true;
}

bool TokenFile::readFlag(std::uint8_t& flag) {
  if (!readToken()) {
    return false;
  }
  if (token[0] != '0' && token[0] != '1') {
    return false;
  }
  flag = token[0] == '1' ? 1 : 0;
  return true;
}

bool TokenFile::isToken(const char* text) const { return equalsIgnoringCase(token.data(), text); }

bool TokenFile::setFile(const char* name) {
  const bool named = fileName.setName(name);
  return fileName.setPath("") && named;
}

bool TokenFile::useMemory(std::uint8_t* block, std::size_t length) {
  setFile("");
  data_ = block;
  cursor_ = block;
  dataEnd_ = block + length;
  return true;
}

bool TokenFile::rewind() {
  cursor_ = data_;
  return true;
}

bool TokenFile::skipLine() {
  char character = '\0';
  do {
    if (!nextChar(character)) {
      return false;
    }
  } while (!isLineEnd(character));
  if (!peekChar(character)) {
    return false;
  }
  if (character == '\n') {
    ++cursor_;
  }
  return true;
}

bool TokenFile::readLine() {
  line.fill('\0');
  std::size_t length = 0;
  char character = '\0';
  while (nextChar(character)) {
    line[length++] = character;
    if (character == '\n' || length == kLineCapacity - 1) {
      return true;
    }
  }
  return false;
}

bool TokenFile::freeBlock(const std::uint8_t* block) {
  delete[] block;
  return true;
}

}  // namespace tavrel
