#include "platform/transfer.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::uint64_t kLongestPiece = std::uint64_t{1} << 22;  // long enough to cost nothing

}  // namespace

std::uint64_t readBytes(std::istream& stream, void* bytes, std::uint64_t count) {
  auto* place = static_cast<char*>(bytes);
  std::uint64_t came = 0;
  do {
    const std::uint64_t piece = std::min(count - came, kLongestPiece);
    stream.read(place + came, static_cast<std::streamsize>(piece));
    came += static_cast<std::uint64_t>(stream.gcount());
  } while (stream.good() && came < count);
  return came;
}

void writeBytes(std::ostream& stream, const void* bytes, std::uint64_t count) {
  const auto* place = static_cast<const char*>(bytes);
  std::uint64_t written = 0;
  do {
    const std::uint64_t piece = std::min(count - written, kLongestPiece);
    stream.write(place + written, static_cast<std::streamsize>(piece));
    written += piece;
  } while (stream.good() && written < count);
}

}  // namespace tavrel
