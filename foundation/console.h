// The one place that prints, to the standard streams or to a sink. Each line is one write of text
// and line feed, and a flush, so that standard output and standard error interleave in the order of
// the steps. Allocates nothing, so that a run that is out of memory can still report it. Write
// errors are ignored.
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

/// Receives the texts instead of the streams. Not used by the tool; for programs that run parts of
/// it silently or report its messages in another form.
struct ConsoleSink {
  ConsoleSink() = default;
  virtual ~ConsoleSink() = default;
  ConsoleSink(const ConsoleSink&) = delete;
  ConsoleSink& operator=(const ConsoleSink&) = delete;
  ConsoleSink(ConsoleSink&&) = delete;
  ConsoleSink& operator=(ConsoleSink&&) = delete;

  /// Takes the text for `stream`. The text is valid during the call and isn't terminated. A line
  /// over 4,096 characters and a line that is printed in pieces arrive in several calls.
  virtual void write(std::FILE* stream, std::string_view text) = 0;
};

/// Prints to `sink`, which must outlive its use, or to the streams if it is null. Returns the
/// previous sink. Applies to all threads: call it only while no other thread prints.
ConsoleSink* setConsoleSink(ConsoleSink* sink);

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
