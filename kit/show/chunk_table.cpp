#include "kit/show/chunk_table.h"

#include <fmt/format.h>

#include "kit/frame/display_text.h"
#include "kit/frame/text_table.h"

namespace tavrel::kit {

std::string chunksText(const std::vector<ListedChunk>& chunks, std::uint64_t count) {
  TextTable table({{"chunk"}, {"offset", Alignment::right}, {"bytes", Alignment::right}, {""}});
  for (const ListedChunk& chunk : chunks) {
    table.add(
        {displayText(chunk.id), std::to_string(chunk.offset), std::to_string(chunk.size),
         chunk.held < chunk.size ? fmt::format("the file ends after {} of them", chunk.held) : ""});
  }
  const std::uint64_t rest = count - chunks.size();
  return (chunks.empty() ? "" : '\n' + table.text()) +
         (rest == 0 ? "" : fmt::format("{} are not listed\n", countText(rest, "more chunk")));
}

}  // namespace tavrel::kit
