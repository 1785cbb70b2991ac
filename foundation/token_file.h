// A whole text file in memory, handed out one token at a time, with a line number for messages.
// A token is a run of characters up to a blank, tab, carriage return, line feed or semicolon; a
// semicolon opens a comment up to the end of its line. There is no quoting.
// False means that nothing usable was read. The block with the text belongs to the object, but
// `freeData`, not the destructor, releases it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "foundation/file_name.h"

namespace tavrel {

class TokenFile {
 public:
  static constexpr std::size_t kLongestToken = 1024;

  static constexpr std::size_t kLineCapacity = 4096;

  /// Room for any token and its terminator: what `readTokenInto` may need.
  using TokenBuffer = std::array<char, kLongestToken + 1>;

  TokenFile();
  explicit TokenFile(const char* name);
  TokenFile(const char* name, const char* path);

  /// Reads the whole file into memory. A file that can't be read is reported on standard error.
  bool load();

  /// Releases the text, whoever made it. Always true. There is nothing to read afterwards.
  bool freeData();

  /// Puts the next token into `token`. False at the end of the text, behind which a token without a
  /// delimiter counts too, and for a token of more than 1024 characters, which is reported.
  bool readToken();

  /// `readToken`, then a copy to `destination`, which has room for it.
  bool readTokenInto(char* destination);

  /// `readToken`, then its decimal value: an optional sign and digits up to any other character, 0
  /// without digits, modulo 2 to the power 32.
  bool readNumber(std::int32_t& number);

  /// `readToken`, then its first character: "0" or "1" stores that number, any other gives false.
  bool readFlag(std::uint8_t& flag);

  /// Whether `token` equals the text, whole, regardless of the case of the letters A to Z.
  [[nodiscard]] bool isToken(const char* text) const;

  /// Gives the file this name and an empty path. False: no memory, or a null name.
  bool setFile(const char* name);

  /// Makes `block` the text, `length` bytes of it. The block isn't copied; `freeData` would release
  /// it with delete[]. Always true.
  bool useMemory(std::uint8_t* block, std::size_t length);

  /// Back to the start of the text. `lineNumber` stays. Always true.
  bool rewind();

  /// Passes over the next line end. False if the text ends before or directly behind the first
  /// character of that line end. `lineNumber` stays.
  bool skipLine();

  /// Copies the text up to and including the next line feed into `line`. A line of more than 4095
  /// characters comes in pieces of that length. False if the text ends first.
  bool readLine();

  /// Releases a block made with new[]; null is ignored. Always true.
  static bool freeBlock(const std::uint8_t* block);

  TokenBuffer token{};          ///< the current token as a terminated text
  std::int16_t lineNumber = 1;  ///< the line on which `token` stands
  FileName fileName;
  std::array<char, kLineCapacity> line{};  ///< what `readLine` has read, terminated

 private:
  bool peekChar(char& character) const;
  bool nextChar(char& character);
  bool skipToToken();
  bool skipBlanks();
  bool skipLineEnd();
  bool skipComment();
  bool oversizeToken();

  std::uint8_t* data = nullptr;
  std::uint8_t* cursor = nullptr;
  std::uint8_t* dataEnd = nullptr;
};

}  // namespace tavrel
