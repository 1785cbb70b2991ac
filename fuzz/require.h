// Conditions that must hold for every input. A fuzzer that finds one violated stops with a failure.
#pragma once

namespace tavrel::fuzz {

inline void require(bool holds) {
  if (!holds) {
    __builtin_trap();
  }
}

}  // namespace tavrel::fuzz
