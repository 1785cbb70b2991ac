#include "samples/sound_convert.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "foundation/byte_block.h"
#include "foundation/byte_order.h"

namespace tavrel {

namespace {

// The 80-bit extended float, as used for sample rates:
//
// | offset | width | content                                                              |
// |--------|-------|----------------------------------------------------------------------|
// | 0      | 1     | sign and top of the exponent: 0x40 in all ordinary rates, not read   |
// | 1      | 1     | low byte of the exponent; with 30 the next field is the number       |
// |        |       | itself, each step less halves it                                     |
// | 2      | 4     | top half of the mantissa, big-endian                                 |
// | 6      | 4     | bottom half of the mantissa, not read                                |
constexpr std::size_t kExtendedSize = 1 + 1 + 4 + 4;
constexpr unsigned kWholeExponent = 30;

}  // namespace

void SoundConvert::readWord(std::uint16_t& value, const std::uint8_t* bytes) {
  value = loadBig16(bytes);
}

void SoundConvert::readLong(std::uint32_t& value, const std::uint8_t* bytes) {
  value = loadBig32(bytes);
}

void SoundConvert::readExtended(std::uint32_t& value, const std::uint8_t* bytes) {
  const auto shift = static_cast<std::uint8_t>(kWholeExponent - bytes[1]);
  // Shifted in 64 bits with one more bit at the bottom, which ends as the last bit shifted out.
  const std::uint64_t top = loadBig32(bytes + 2);
  const std::uint64_t withHalf = shift <= 32 ? (top << 1U) >> shift : 0;
  value = static_cast<std::uint32_t>((withHalf >> 1U) + (withHalf & 1U));
}

void SoundConvert::makeExtended(std::uint8_t* bytes, std::uint32_t value) {
  std::fill_n(bytes, kExtendedSize, std::uint8_t{0});
  if (value == 0) {
    return;
  }
  const auto unusedBits = static_cast<unsigned>(std::countl_zero(value));
  bytes[1] =
      static_cast<std::uint8_t>(unusedBits < kWholeExponent ? kWholeExponent - unusedBits : 0);
  storeBig32(bytes + 2, value << unusedBits);
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
    return destination;  // `source` may be null
  }
  const std::size_t wholePairs = count - count % 2;
  std::memmove(destination, source, wholePairs);
  // In place and in host words: compilers vectorise this, but not two single-byte loads and stores.
  for (std::size_t i = 0; i < wholePairs; i += sizeof(std::uint16_t)) {
    std::uint16_t pair = 0;
    std::memcpy(&pair, destination + i, sizeof pair);
    pair = swapped16(pair);
    std::memcpy(destination + i, &pair, sizeof pair);
  }
  return destination;
}

}  // namespace tavrel
