#include "kit/build/build_time.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdlib>
#include <string_view>

#include "kit/frame/failure.h"
#include "platform/local_time.h"

namespace tavrel::kit {

BuildTime::BuildTime() {
  const char* variable = std::getenv("SOURCE_DATE_EPOCH");
  const std::string_view text = variable != nullptr ? variable : "";
  if (text.empty()) {
    return;
  }
  constexpr std::int64_t kEndOf9999 = 253402300799;
  std::int64_t seconds = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  if (error != std::errc() || end != text.data() + text.size() || seconds < 0 ||
      seconds > kEndOf9999) {
    throw Failure(fmt::format(
        "SOURCE_DATE_EPOCH must be the seconds since 1970, up to the year 9999, not {}", text));
  }
  stopClock(utcTime(seconds));
}

BuildTime::~BuildTime() { restartClock(); }

}  // namespace tavrel::kit
