#include "kit/quality/quality_limit.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "kit/frame/failure.h"

namespace tavrel::kit {

namespace {

/// Returns the finite number that `text` is in decimal notation. Not every standard library has
/// std::from_chars for floating point, and std::strtod also takes spaces, a plus sign and
/// hexadecimal.
std::optional<double> decimalFraction(const std::string& text) {
  const bool isDecimal = text.find_first_of("-.0123456789") == 0 &&
                         text.find_first_not_of("+-.0123456789eE") == std::string::npos;
  char* end = nullptr;
  const double number = std::strtod(text.c_str(), &end);
  return isDecimal && *end == '\0' && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

}  // namespace

CommandOption belowOption(std::string help) {
  return {.names = "--below", .value = "DB", .help = std::move(help)};
}

std::optional<double> qualityLimit(const Arguments& arguments) {
  const auto text = arguments.value("--below");
  if (!text) {
    return std::nullopt;
  }
  const auto limit = decimalFraction(*text);
  if (!limit) {
    throw Failure(fmt::format("--below takes a number of decibels, not {}", *text));
  }
  return limit;
}

}  // namespace tavrel::kit
