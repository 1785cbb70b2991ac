#include "platform/transfer.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::uint64_t kLongestPiece = 0x400000;  // so long that pieces cost nothing

}  // namespace

std::uint64_t readBytes(std::istream& stream, void* destination, std::uint64_t count) {
  auto* bytes = static_cast<char*>(destination);
  std::uint64_t done = 0;
  do {
    const std::uint64_t piece = std::min(count - done, kLongestPiece);
    stream.read(bytes + done, static_cast<std::streamsize>(piece));
    done += static_cast<std::uint64_t>(stream.gcount());
  } while (stream.good() && done < count);
  return done;
}

void writeBytes(std::ostream& stream, const void* source, std::uint64_t count) {
  const auto* bytes = static_cast<const char*>(source);
  std::uint64_t done = 0;
  do {
    const std::uint64_t piece = std::min(count - done, kLongestPiece);
    stream.write(bytes + done, static_cast<std::streamsize>(piece));
    done += piece;
  } while (stream.good() && done < count);
}

}  // namespace tavrel
