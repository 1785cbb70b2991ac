#include "kit/frame/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

#include "platform/terminal.h"

namespace tavrel::kit {

namespace {

constexpr std::chrono::milliseconds kDelay{500};
constexpr std::chrono::milliseconds kInterval{100};

void show(const char* line) {
  std::fputs(line, stderr);
  std::fflush(stderr);
}

}  // namespace

Progress::Progress(std::uint64_t total)
    : total_(total),
      nextLine_(isTerminal(stderr) ? Clock::now() + kDelay : Clock::time_point::max()) {}

Progress::~Progress() {
  if (hasLine_) {
    show("\r    \r");
  }
}

void Progress::advance(std::uint64_t amount) {
  done_ += amount;
  const Clock::time_point now = Clock::now();
  if (now >= nextLine_) {
    const std::uint64_t done = std::min(done_, total_);  // some work is found on the way
    show(fmt::format("\r{:3}%", 100 * done / std::max<std::uint64_t>(total_, 1)).c_str());
    hasLine_ = true;
    nextLine_ = now + kInterval;
  }
}

}  // namespace tavrel::kit
