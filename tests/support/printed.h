// What a call prints on the standard streams.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace tavrel::test {

struct Printed {
  std::string output, errors;
};

inline Printed printedBy(const auto& call) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  call();
  return {testing::internal::GetCapturedStdout(), testing::internal::GetCapturedStderr()};
}

}  // namespace tavrel::test
