#pragma once

#include <chrono>
#include <cstdint>

namespace tavrel::kit {

/// Shows how much of some work is done, on standard error if that is a terminal. Shows nothing of
/// work that ends within half a second. The line disappears on destruction.
class Progress {
 public:
  /// `total` is the whole work, in any unit.
  explicit Progress(std::uint64_t total);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress(Progress&&) = delete;
  Progress& operator=(const Progress&) = delete;
  Progress& operator=(Progress&&) = delete;

  /// Adds to the work that is done.
  void advance(std::uint64_t amount);

 private:
  using Clock = std::chrono::steady_clock;

  std::uint64_t total_;
  std::uint64_t done_ = 0;
  Clock::time_point nextLine_;
  bool hasLine_ = false;
};

}  // namespace tavrel::kit
