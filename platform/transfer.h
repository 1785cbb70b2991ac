// Reads and writes of any length. A host's own calls may take less than 2 GiB at once, so that a
// stream which hands them a longer one fails or never ends.
#pragma once

#include <cstdint>
#include <istream>
#include <ostream>

namespace tavrel {

/// Like `stream.read`. Gives how many bytes came; fewer than `count` leave the stream failed.
std::uint64_t readBytes(std::istream& stream, void* bytes, std::uint64_t count);

/// Like `stream.write`.
void writeBytes(std::ostream& stream, const void* bytes, std::uint64_t count);

}  // namespace tavrel
