// Texts that the tool's classes make.
#pragma once

#include <new>
#include <string>

namespace tavrel::kit {

/// Returns a text that is null only if memory ran out. Throws std::bad_alloc in that case.
inline std::string requiredText(const char* text) {
  if (text == nullptr) {
    throw std::bad_alloc();
  }
  return text;
}

}  // namespace tavrel::kit
