// Loads and stores of numbers in a stated byte order, at any alignment and on any host, and the
// four-character ids of chunk files. The only place that takes numbers apart into bytes.
// Depends on nothing, so that platform/ may include it as well.
#pragma once

#include <cstdint>

namespace tavrel {

constexpr std::uint16_t loadLittle16(const std::uint8_t* bytes) {
  return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8U);
}

constexpr std::uint32_t loadLittle24(const std::uint8_t* bytes) {
  return bytes[0] | std::uint32_t{bytes[1]} << 8U | std::uint32_t{bytes[2]} << 16U;
}

constexpr std::uint32_t loadLittle32(const std::uint8_t* bytes) {
  return loadLittle24(bytes) | std::uint32_t{bytes[3]} << 24U;
}

constexpr std::uint16_t loadBig16(const std::uint8_t* bytes) {
  return static_cast<std::uint16_t>(bytes[0] << 8U | bytes[1]);
}

constexpr std::uint32_t loadBig24(const std::uint8_t* bytes) {
  return std::uint32_t{bytes[0]} << 16U | std::uint32_t{bytes[1]} << 8U | bytes[2];
}

constexpr std::uint32_t loadBig32(const std::uint8_t* bytes) {
  return loadBig24(bytes) << 8U | bytes[3];
}

constexpr void storeLittle16(std::uint8_t* bytes, std::uint16_t value) {
  bytes[0] = static_cast<std::uint8_t>(value);
  bytes[1] = static_cast<std::uint8_t>(value >> 8U);
}

/// Stores the low 24 bits of `value`.
constexpr void storeLittle24(std::uint8_t* bytes, std::uint32_t value) {
  storeLittle16(bytes, static_cast<std::uint16_t>(value));
  bytes[2] = static_cast<std::uint8_t>(value >> 16U);
}

constexpr void storeLittle32(std::uint8_t* bytes, std::uint32_t value) {
  storeLittle24(bytes, value);
  bytes[3] = static_cast<std::uint8_t>(value >> 24U);
}

constexpr void storeBig16(std::uint8_t* bytes, std::uint16_t value) {
  bytes[0] = static_cast<std::uint8_t>(value >> 8U);
  bytes[1] = static_cast<std::uint8_t>(value);
}

/// Stores the low 24 bits of `value`.
constexpr void storeBig24(std::uint8_t* bytes, std::uint32_t value) {
  bytes[0] = static_cast<std::uint8_t>(value >> 16U);
  storeBig16(bytes + 1, static_cast<std::uint16_t>(value));
}

constexpr void storeBig32(std::uint8_t* bytes, std::uint32_t value) {
  bytes[0] = static_cast<std::uint8_t>(value >> 24U);
  storeBig24(bytes + 1, value);
}

/// Returns `value` with its two bytes exchanged.
constexpr std::uint16_t swapped16(std::uint16_t value) {
  return static_cast<std::uint16_t>(value << 8U | value >> 8U);
}

/// Returns the id made of the first four characters of `text`, the first one in the least
/// significant byte, as RIFF files are read.
constexpr std::uint32_t littleFourCc(const char* text) {
  std::uint32_t id = 0;
  for (unsigned i = 0; i < 4; ++i) {
    id |= std::uint32_t{static_cast<std::uint8_t>(text[i])} << 8U * i;
  }
  return id;
}

/// Returns the id made of the first four characters of `text`, the first one in the most
/// significant byte, as IFF files are read.
constexpr std::uint32_t bigFourCc(const char* text) {
  std::uint32_t id = 0;
  for (unsigned i = 0; i < 4; ++i) {
    id = id << 8U | static_cast<std::uint8_t>(text[i]);
  }
  return id;
}

}  // namespace tavrel
