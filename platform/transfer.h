// Stream reads and writes of any length. A host's own calls may be limited to less than 2 GiB, and
// a stream that passes on a longer request fails or never returns.
#pragma once

#include <cstdint>
#include <istream>
#include <ostream>

namespace tavrel {

/// Reads like `stream.read`. Returns the number of bytes read; fewer than `count` leave the stream
/// failed.
std::uint64_t readBytes(std::istream& stream, void* destination, std::uint64_t count);

/// Writes like `stream.write`.
void writeBytes(std::ostream& stream, const void* source, std::uint64_t count);

}  // namespace tavrel
