#include "foundation/console.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tavrel {

namespace {

constexpr std::size_t kLineCapacity = 4096;

ConsoleSink*& currentSink() {
  static ConsoleSink* sink = nullptr;
  return sink;
}

void writeText(std::FILE* stream, std::string_view text) {
  if (currentSink() != nullptr) {
    currentSink()->write(stream, text);
  } else {
    std::fwrite(text.data(), 1, text.size(), stream);
  }
}

/// Collects text and writes it when the buffer is full. Longer texts are written directly.
class LineBuffer {
 public:
  explicit LineBuffer(std::FILE* stream) : stream_(stream) {}

  void append(std::string_view text) {
    if (text.size() > buffer_.size() - used_) {
      writeOut();
    }
    if (text.size() > buffer_.size()) {
      writeText(stream_, text);
      return;
    }
    std::copy(text.begin(), text.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(used_));
    used_ += text.size();
  }

  void writeOut() {
    writeText(stream_, {buffer_.data(), used_});
    used_ = 0;
  }

 private:
  std::FILE* stream_;
  std::array<char, kLineCapacity> buffer_{};
  std::size_t used_ = 0;
};

}  // namespace

ConsoleSink* setConsoleSink(ConsoleSink* sink) { return std::exchange(currentSink(), sink); }

LinePart::LinePart(const char* text) : text_(text != nullptr ? text : "") {}

LinePart::LinePart(std::string_view text) : text_(text) {}

LinePart::LinePart(const std::string& text) : text_(text) {}

LinePart::LinePart(std::int64_t number) {
  const auto result = std::to_chars(digits_.data(), digits_.data() + digits_.size(), number);
  digitCount_ = static_cast<std::size_t>(result.ptr - digits_.data());
}

std::string_view LinePart::text() const {
  return digitCount_ > 0 ? std::string_view(digits_.data(), digitCount_) : text_;
}

void printParts(std::FILE* stream, std::span<const LinePart> parts) {
  LineBuffer line(stream);
  for (const LinePart& part : parts) {
    line.append(part.text());
  }
  line.writeOut();
  std::fflush(stream);
}

}  // namespace tavrel
