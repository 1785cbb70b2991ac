// Membership in a list, which the standard library has from C++23 on.
#pragma once

#include <algorithm>

namespace tavrel::kit {

template <typename List, typename Value>
bool contains(const List& list, const Value& value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

}  // namespace tavrel::kit
