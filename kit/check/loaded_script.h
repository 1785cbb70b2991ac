// The tool's readers of scripts, with a text that is in memory.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>

#include "foundation/token_file.h"

namespace tavrel::kit {

/// A TokenFile, or a class made of one, that owns a copy of its text and frees it on destruction.
template <typename Reader>
class LoadedText : public Reader {
 public:
  /// `arguments` are those of the reader. Its file has no name after it.
  template <typename... Arguments>
  explicit LoadedText(std::string_view text, const Arguments&... arguments) : Reader(arguments...) {
    std::unique_ptr<std::uint8_t[]> block(new std::uint8_t[text.size()]);
    std::copy(text.begin(), text.end(), block.get());
    this->useMemory(block.release(), text.size());
  }
  ~LoadedText() { this->freeData(); }
  LoadedText(const LoadedText&) = delete;
  LoadedText(LoadedText&&) = delete;
  LoadedText& operator=(const LoadedText&) = delete;
  LoadedText& operator=(LoadedText&&) = delete;
};

using LoadedScript = LoadedText<TokenFile>;

}  // namespace tavrel::kit
