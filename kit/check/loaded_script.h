// The tool's reader of a script whose text is in memory.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>

#include "foundation/token_file.h"

namespace tavrel::kit {

class LoadedScript : public TokenFile {
 public:
  /// Copies the text.
  explicit LoadedScript(std::string_view text) {
    std::unique_ptr<std::uint8_t[]> block(new std::uint8_t[text.size()]);
    std::copy(text.begin(), text.end(), block.get());
    useMemory(block.release(), text.size());
  }
  ~LoadedScript() { freeData(); }
  LoadedScript(const LoadedScript&) = delete;
  LoadedScript(LoadedScript&&) = delete;
  LoadedScript& operator=(const LoadedScript&) = delete;
  LoadedScript& operator=(LoadedScript&&) = delete;
};

}  // namespace tavrel::kit
