// What has to hold whatever the input: a fuzzer that finds otherwise stops with a failure.
#pragma once

namespace tavrel::fuzz {

inline void require(bool holds) {
  if (!holds) {
    __builtin_trap();
  }
}

}  // namespace tavrel::fuzz
