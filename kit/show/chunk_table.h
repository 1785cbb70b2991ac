// How the chunks of a WAV or AIFF file are printed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavrel::kit {

struct ListedChunk {
  std::string id{};
  std::uint64_t offset = 0;  ///< of its content
  std::uint32_t size = 0;    ///< as it states
  std::uint32_t held = 0;    ///< bytes that are in the file
};

/// Returns a table of the first chunks of a file, which has `count` chunks.
std::string chunksText(const std::vector<ListedChunk>& chunks, std::uint64_t count);

}  // namespace tavrel::kit
