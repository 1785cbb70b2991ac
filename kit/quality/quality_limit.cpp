#include "kit/quality/quality_limit.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <utility>

#include "kit/frame/failure.h"

namespace tavrel::kit {

CommandOption belowOption(std::string help) {
  return {.names = "--below", .value = "DB", .help = std::move(help)};
}

std::optional<double> qualityLimit(const Arguments& arguments) {
  const auto text = arguments.value("--below");
  if (!text) {
    return std::nullopt;
  }
  double limit = 0;
  const char* end = text->data() + text->size();
  const auto result = std::from_chars(text->data(), end, limit);
  if (result.ec != std::errc() || result.ptr != end || !std::isfinite(limit)) {
    throw Failure(fmt::format("--below takes a number of decibels, not {}", *text));
  }
  return limit;
}

}  // namespace tavrel::kit
