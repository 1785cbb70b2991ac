// Reader of a text file: loads it whole and returns one token at a time, with a line number for
// messages. A token ends at a blank, tab, carriage return, line feed or semicolon. A semicolon
// opens a comment up to the end of its line. There is no quoting. Owns the text, but `freeData`,
// not the destructor, releases it. Operations return false if there is nothing usable to read.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "foundation/file_name.h"

namespace tavrel {

class TokenFile {
 public:
  static constexpr std::size_t kLongestToken = 1024;

  static constexpr std::size_t kLineCapacity = 4096;

  /// Holds any token and its terminator.
  using TokenBuffer = std::array<char, kLongestToken + 1>;

  TokenFile();
  explicit TokenFile(const char* name);
  TokenFile(const char* name, const char* path);
  ~TokenFile() = default;
  TokenFile(const TokenFile&) = delete;
  TokenFile& operator=(const TokenFile&) = delete;
  TokenFile(TokenFile&&) = delete;
  TokenFile& operator=(TokenFile&&) = delete;

  /// Reads the whole file into memory. Reports a file that can't be read on standard error.
  bool load();

  /// Releases the text, however it was set. Always returns true. Nothing is left to read.
  bool freeData();

  /// Reads the next token into `token`. Returns false at the end of the text and for a token over
  /// 1,024 characters, which is reported. A last token with no delimiter after it is not returned.
  bool readToken();

  /// Reads a token and sets `number` to its decimal value: an optional sign and digits up to any
  /// other character, 0 without digits, modulo 2 to the power 32.
  bool readNumber(std::int32_t& number);

  /// Reads a token and sets `flag` to 0 or 1, its first character. Fails for any other character.
  bool readFlag(std::uint8_t& flag);

  /// Returns true if `token` equals the whole text, regardless of the case of the letters A to Z.
  /// Null matches nothing.
  [[nodiscard]] bool isToken(const char* text) const;

  /// Returns the offset of the current token in the text. After `readToken` has returned false, it
  /// is the offset of the token that was refused, or the text's size if none was left. A refused
  /// token is too long if more than 1,024 characters of the text start there. Otherwise it is the
  /// last one and has no delimiter after it.
  [[nodiscard]] std::size_t tokenStart() const { return tokenStart_; }

  /// Returns true for a character that ends a token.
  [[nodiscard]] static bool isDelimiter(char character);

  // Not used by the tool; for programs that report columns, parse other text, or parse text that is
  // in memory already.

  /// Returns the whole text. Valid until `freeData`.
  [[nodiscard]] std::string_view text() const {
    return {reinterpret_cast<const char*>(data_), static_cast<std::size_t>(dataEnd_ - data_)};
  }

  /// Reads a token and copies it to `destination`, which has room for a `TokenBuffer`.
  bool readTokenInto(char* destination);

  /// Sets the file's name and clears its path. Returns false if `name` is null or memory runs out.
  bool setFile(const char* name);

  /// Takes ownership of the `length` bytes of `block`, made with new[], as the text. A text that is
  /// loaded must be freed first. Clears the file's name and path. Always returns true.
  bool useMemory(std::uint8_t* block, std::size_t length);

  /// Moves to the start of the text. `lineNumber` is unchanged. Always returns true.
  bool rewind();

  /// Skips to the start of the next line. Returns false if there is none, or if the text ends after
  /// the first character of the line end. `lineNumber` is unchanged.
  bool skipLine();

  /// Copies the text up to and including the next line feed into `line`. A line of more than 4,095
  /// characters is returned in pieces of that length. Returns false if the text ends first.
  bool readLine();

  /// Releases a block made with new[]. Null is ignored. Always returns true.
  static bool freeBlock(const std::uint8_t* block);

  TokenBuffer token{};          ///< the current token as a terminated text
  std::int16_t lineNumber = 1;  ///< the line of `token`
  FileName fileName;
  std::array<char, kLineCapacity> line{};  ///< what `readLine` has read, terminated

 private:
  bool peekChar(char& character) const;
  bool nextChar(char& character);
  bool skipToToken();
  bool skipBlanks();
  bool skipLineEnd();
  bool skipComment();
  void reportOversizedToken() const;

  std::uint8_t* data_ = nullptr;
  std::uint8_t* cursor_ = nullptr;
  std::uint8_t* dataEnd_ = nullptr;
  std::size_t tokenStart_ = 0;
};

}  // namespace tavrel
