// Asserts several results, which are computed in order: EXPECT_TRUE(all({a.open(), !a.open()})).
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

namespace tavrel::test {

/// Fails with the place of the first result that is false, counted from 0.
inline testing::AssertionResult all(std::initializer_list<bool> results) {
  const auto* wrong = std::find(results.begin(), results.end(), false);
  return wrong == results.end()
             ? testing::AssertionSuccess()
             : testing::AssertionFailure() << "result " << wrong - results.begin() << " is false";
}

}  // namespace tavrel::test
