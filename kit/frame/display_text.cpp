#include "kit/frame/display_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace tavrel::kit {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

bool isContinuation(char byte) { return (static_cast<std::uint8_t>(byte) & 0xC0U) == 0x80; }

/// Returns how many bytes the sequence takes that `lead` begins; 0 if it can't begin one.
std::size_t sequenceLength(std::uint8_t lead) {
  if (lead < 0x80) {
    return 1;
  }
  if (lead >= 0xC2 && lead <= 0xDF) {
    return 2;
  }
  if ((lead & 0xF0U) == 0xE0) {
    return 3;
  }
  return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

/// Returns the code point that `text` begins with and its length in bytes, or a length of 0.
std::pair<std::uint32_t, std::size_t> decode(std::string_view text) {
  const auto lead = static_cast<std::uint8_t>(text.front());
  const std::size_t length = sequenceLength(lead);
  if (length == 0 || length > text.size() ||
      !std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length),
                   isContinuation)) {
    return {0, 0};
  }
  std::uint32_t code = length == 1 ? lead : lead & (0x7FU >> length);
  for (const char byte : text.substr(1, length - 1)) {
    code = code << 6U | (static_cast<std::uint8_t>(byte) & 0x3FU);
  }
  const bool isOverlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
  return {code, isOverlong || isSurrogate || code > 0x10FFFF ? 0 : length};
}

bool isControl(std::uint32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

}  // namespace

std::string displayText(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const auto [code, length] = decode(text);
    shown += length == 0 || isControl(code) ? kReplacement : text.substr(0, length);
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return shown;
}

std::size_t characterLength(std::string_view text) {
  return std::max<std::size_t>(decode(text).second, 1);
}

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  for (; !text.empty(); text.remove_prefix(characterLength(text))) {
    ++width;
  }
  return width;
}

std::string countText(std::uint64_t count, std::string_view noun) {
  return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::string durationText(double seconds) {
  constexpr double kLongest = 9e15;  // in seconds; its milliseconds fit into 64 bits
  const auto milliseconds =
      static_cast<std::int64_t>(std::llround(std::min(seconds, kLongest) * 1000));
  return fmt::format("{}:{:02}.{:03}", milliseconds / 60000, milliseconds / 1000 % 60,
                     milliseconds % 1000);
}

}  // namespace tavrel::kit
