#include "kit/frame/shell_word.h"

#include <fmt/format.h>

#include <cstdint>

#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

constexpr std::string_view kPlain =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._/+-";

/// Returns a word with bytes that can't be in a line of text, or would be shown as others, as
/// escapes of the shell.
std::string escapedWord(std::string_view word) {
  std::string quoted = "$'";
  for (const char c : word) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (byte < 0x20 || byte >= 0x7F) {
      quoted += fmt::format("\\{:03o}", byte);
    } else {
      quoted += c == '\'' || c == '\\' ? std::string{'\\', c} : std::string{c};
    }
  }
  return quoted + "'";
}

}  // namespace

std::string shellWord(std::string_view word) {
  if (!word.empty() && word.find_first_not_of(kPlain) == std::string_view::npos) {
    return std::string(word);
  }
  if (displayText(word) != word) {
    return escapedWord(word);
  }
  std::string quoted = "'";
  for (const char c : word) {
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  }
  return quoted + "'";
}

}  // namespace tavrel::kit
