#include "foundation/console.h"

#include <algorithm>
#include <charconv>

namespace tavrel {

namespace {

constexpr std::size_t kLineCapacity = 4096;

/// Collects text and writes it when the buffer is full. Longer texts are written directly.
class LineBuffer {
 public:
  explicit LineBuffer(std::FILE* stream) : stream_(stream) {}

  void append(std::string_view text) {
    if (text.size() > buffer_.size() - used_) {
      writeOut();
    }
    if (text.size() > buffer_.size()) {
      std::fwrite(text.data(), 1, text.size(), stream_);
      return;
    }
    std::copy(text.begin(), text.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(used_));
    used_ += text.size();
  }

  void writeOut() {
    std::fwrite(buffer_.data(), 1, used_, stream_);
    used_ = 0;
  }

 private:
  std::FILE* stream_;
  std::array<char, kLineCapacity> buffer_{};
  std::size_t used_ = 0;
};

}  // namespace

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
