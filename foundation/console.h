// The one place that prints. Each line is one write of text and line feed, and a flush, so that
// standard output and standard error interleave in the order of the steps. Allocates nothing, so
// that a run that is out of memory can still report it. Write errors are ignored.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

namespace tavrel {

/// One piece of a line: a text (null prints nothing) or a decimal number.
class LinePart {
 public:
  LinePart(const char* text);         // NOLINT(google-explicit-constructor)
  LinePart(std::string_view text);    // NOLINT(google-explicit-constructor)
  LinePart(const std::string& text);  // NOLINT(google-explicit-constructor)
  LinePart(std::int64_t number);      // NOLINT(google-explicit-constructor)
  LinePart(std::int32_t number) : LinePart(std::int64_t{number}) {}
  LinePart(std::uint32_t number) : LinePart(std::int64_t{number}) {}

  [[nodiscard]] std::string_view text() const;

 private:
  static constexpr std::size_t kLongestNumber = 20;
  std::string_view text_;
  std::array<char, kLongestNumber> digits_{};
  std::size_t digitCount_ = 0;
};

/// Writes the parts to `stream` (stdout or stderr) without a line feed, and flushes.
void printParts(std::FILE* stream, std::span<const LinePart> parts);

/// Writes the parts and a line feed to `stream`, and flushes.
template <typename... Parts>
void printLine(std::FILE* stream, const Parts&... parts) {
  const std::array<LinePart, sizeof...(parts) + 1> line{LinePart(parts)..., LinePart("\n")};
  printParts(stream, line);
}

/// Writes the parts without a line feed, and flushes: for a line that is written in pieces.
template <typename... Parts>
void printUnterminated(std::FILE* stream, const Parts&... parts) {
  const std::array<LinePart, sizeof...(parts)> pieces{LinePart(parts)...};
  printParts(stream, pieces);
}

}  // namespace tavrel
