#include "foundation/time_stamp.h"

#include <array>
#include <cstdio>

namespace tavrel {

namespace {

constexpr std::size_t kLongestPart = 32;

}  // namespace

const char* TimeStamp::getDateText() {
  GetLocalTime(&now_);
  std::array<char, kLongestPart> text{};
  std::snprintf(text.data(), text.size(), "%d/%d/%d", now_.wMonth, now_.wDay, now_.wYear);
  dateText_ = makeText(text.data());
  return dateText_.get();
}

const char* TimeStamp::getTimeText() {
  GetLocalTime(&now_);
  const bool afterNoon = now_.wHour > 12;
  const int hour = afterNoon ? now_.wHour - 12 : now_.wHour;
  std::array<char, kLongestPart> text{};
  std::snprintf(text.data(), text.size(), "%d:%.02d %s", hour, now_.wMinute,
                afterNoon ? "pm" : "am");
  timeText_ = makeText(text.data());
  return timeText_.get();
}

const char* TimeStamp::getDateAndTime() {
  const char* time = getTimeText();
  const char* date = getDateText();
  if (time == nullptr || date == nullptr) {
    return nullptr;
  }
  std::array<char, 2 * kLongestPart> text{};
  std::snprintf(text.data(), text.size(), "%s %s", date, time);
  stampText_ = makeText(text.data());
  return stampText_.get();
}

}  // namespace tavrel
