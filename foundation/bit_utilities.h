// Operations on bits, nibbles, bytes and words. Bit 0 is the least significant bit.
// Nothing here fails: bits beyond a value's width read as 0 and can't be written.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tavrel {

/// Returns `count`, but at most the width of a word. A shift by that moves every bit of a word out;
/// a longer one may be undefined.
constexpr unsigned boundedShift(std::uint16_t count) {
  return std::min<unsigned>(count, std::numeric_limits<std::uint16_t>::digits);
}

/// Returns bits 0 to `width` - 1 of `value`.
constexpr std::uint16_t lowBits(std::uint16_t value, std::uint16_t width) {
  return static_cast<std::uint16_t>(value & ((1U << boundedShift(width)) - 1U));
}

/// Returns bits `start` to `start` + `width` - 1 of `value`, shifted down to bit 0.
constexpr std::uint16_t extractBits(std::uint16_t value, std::uint16_t start, std::uint16_t width) {
  return lowBits(static_cast<std::uint16_t>(value >> boundedShift(start)), width);
}

/// Replaces bits `start` to `start` + `width` - 1 of `target` by the low bits of `value`.
constexpr void insertBits(std::uint16_t& target, std::uint16_t value, std::uint16_t start,
                          std::uint16_t width) {
  const std::uint32_t replaced = std::uint32_t{lowBits(0xFFFF, width)} << boundedShift(start);
  const std::uint32_t inserted = std::uint32_t{lowBits(value, width)} << boundedShift(start);
  target = static_cast<std::uint16_t>((target & ~replaced) | inserted);
}

/// Returns the upper half of `high` and the lower half of `low`.
constexpr std::uint8_t combineNibbles(std::uint8_t high, std::uint8_t low) {
  return static_cast<std::uint8_t>((high & 0xF0U) | (low & 0x0FU));
}

constexpr std::uint8_t keepHighNibble(std::uint8_t byte) { return byte & 0xF0U; }
constexpr std::uint8_t keepLowNibble(std::uint8_t byte) { return byte & 0x0FU; }

constexpr std::uint8_t highByte(std::uint16_t word) {
  return static_cast<std::uint8_t>(word >> 8U);
}
constexpr std::uint8_t lowByte(std::uint16_t word) { return static_cast<std::uint8_t>(word); }
constexpr std::uint16_t highWord(std::uint32_t value) {
  return static_cast<std::uint16_t>(value >> 16U);
}
constexpr std::uint16_t lowWord(std::uint32_t value) { return static_cast<std::uint16_t>(value); }

/// ORs `target` with `mask`.
constexpr void setBits(std::uint16_t& target, std::uint16_t mask) { target |= mask; }
constexpr void setBits(std::uint32_t& target, std::uint32_t mask) { target |= mask; }

/// XORs `target` with `mask` if any bit of the mask is set in it: a mask of one bit clears that
/// bit, a mask of several also sets those that were clear.
constexpr void clearBits(std::uint8_t& target, std::uint8_t mask) {
  target ^= (target & mask) != 0 ? mask : std::uint8_t{0};
}
constexpr void clearBits(std::uint16_t& target, std::uint16_t mask) {
  target ^= (target & mask) != 0 ? mask : std::uint16_t{0};
}
constexpr void clearBits(std::uint32_t& target, std::uint32_t mask) {
  target ^= (target & mask) != 0 ? mask : 0U;
}

/// Prints `value` in decimal and as its 16 or 32 binary digits, as one line on standard output.
void printBinary(std::uint16_t value);
void printBinary(std::uint32_t value);

}  // namespace tavrel
