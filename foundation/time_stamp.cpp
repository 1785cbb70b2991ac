#include "foundation/time_stamp.h"

#include <array>
#include <cstdio>

namespace tavrel {

namespace {

constexpr std::size_t kLongestPart = 32;

}  // namespace

const char* TimeStamp::getDateText() {
  GetLocalTime(&now);
  std::array<char, kLongestPart> text{};
  std::snprintf(text.data(), text.size(), "%d/%d/%d", now.wMonth, now.wDay, now.wYear);
  dateText = makeText(text.data());
  return dateText.get();
}

const char* TimeStamp::getTimeText() {
  GetLocalTime(&now);
  const bool afterNoon = now.wHour > 12;
  const int hour = afterNoon ? now.wHour - 12 : now.wHour;
  std::array<char, kLongestPart> text{};
  std::snprintf(text.data(), text.size(), "%d:%.02d %s", hour, now.wMinute,
                afterNoon ? "pm" : "am");
  timeText = makeText(text.data());
  return timeText.get();
}

const char* TimeStamp::getDateAndTime() {
  const char* time = getTimeText();
  const char* date = getDateText();
  if (time == nullptr || date == nullptr) {
    return nullptr;
  }
  std::array<char, 2 * kLongestPart> text{};
  std::snprintf(text.data(), text.size(), "%s %s", date, time);
  stampText = makeText(text.data());
  return stampText.get();
}

}  // namespace tavrel
