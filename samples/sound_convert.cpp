#include "samples/sound_convert.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "foundation/byte_block.h"

namespace tavrel {

namespace {

// The 80-bit extended float, as sample rates use it:
//
// | offset | width | content                                                         |
// |--------|-------|-----------------------------------------------------------------|
// | 0      | 1     | sign and top of the exponent: 0x40 in all ordinary rates        |
// | 1      | 1     | low byte of the exponent: 30 puts the lowest bit of the next    |
// |        |       | field at 1, each step below halves it                           |
// | 2      | 4     | top half of the mantissa, big-endian                            |
// | 6      | 4     | bottom half of the mantissa                                     |
constexpr std::size_t kExtendedSize = 1 + 1 + 4 + 4;
constexpr unsigned kWholeExponent = 30;

}  // namespace

void SoundConvert::readWord(std::uint16_t& value, const std::uint8_t* bytes) {
  value = static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
}

void SoundConvert::readLong(std::uint32_t& value, const std::uint8_t* bytes) {
  value = std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
          std::uint32_t{bytes[2]} << 8 | bytes[3];
}

void SoundConvert::readExtended(std::uint32_t& value, const std::uint8_t* bytes) {
  std::uint32_t top = 0;
  readLong(top, bytes + 2);
  const auto shift = static_cast<std::uint8_t>(kWholeExponent - bytes[1]);
  // In 64 bits with one more bit below, which is the last one that the shift loses.
  const std::uint64_t withHalf = shift <= 32 ? (std::uint64_t{top} << 1) >> shift : 0;
  value = static_cast<std::uint32_t>((withHalf >> 1) + (withHalf & 1));
}

void SoundConvert::makeExtended(std::uint8_t* bytes, std::uint32_t value) {
  std::fill_n(bytes, kExtendedSize, std::uint8_t{0});
  if (value == 0) {
    return;
  }
  const auto unusedBits = static_cast<unsigned>(std::countl_zero(value));
  bytes[1] =
      static_cast<std::uint8_t>(unusedBits < kWholeExponent ? kWholeExponent - unusedBits : 0);
  const std::uint32_t top = value << unusedBits;
  for (unsigned i = 0; i < 4; ++i) {
    bytes[2 + i] = static_cast<std::uint8_t>(top >> (24 - 8 * i));
  }
}

std::uint8_t* SoundConvert::swapBytes(const std::uint8_t* source, std::uint8_t* destination,
                                      std::uint32_t count) {
  if (destination == nullptr) {
    destination = newBytes(count).release();
    if (destination == nullptr) {
      return nullptr;
    }
  }
  if (count < 2) {
    return destination;  // the source may be null then
  }
  const std::size_t wholePairs = count & ~std::uint32_t{1};
  std::memmove(destination, source, wholePairs);
  // In place and a pair at a time as one number: compilers turn this into wide moves.
  for (std::size_t i = 0; i < wholePairs; i += 2) {
    std::uint16_t pair = 0;
    std::memcpy(&pair, destination + i, sizeof pair);
    pair = static_cast<std::uint16_t>(pair << 8 | pair >> 8);
    std::memcpy(destination + i, &pair, sizeof pair);
  }
  return destination;
}

}  // namespace tavrel
