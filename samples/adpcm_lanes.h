// Encodes sixteen sounds side by side, each in a lane of 16-bit vectors.
// Within one sound every sample waits for the one before it. Sounds don't wait for each other.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "foundation/byte_block.h"
#include "samples/adpcm_stream.h"

namespace tavrel {

/// A sound that is being encoded. Owns the block that holds its samples and borrows its stream.
struct AdpcmLane {
  ByteBlock block;
  const std::uint8_t* samples = nullptr;  ///< the next one; little-endian, at any alignment
  std::uint8_t* codes = nullptr;          ///< where the next code is stored
  std::size_t codeBytes = 0;              ///< bytes of codes still to store
  AdpcmState state{};
};

/// The lanes advance together by two bytes of codes, four samples each.
constexpr std::size_t kAdpcmBytesAtOnce = 2;

constexpr std::size_t kAdpcmLanes = 16;

using AdpcmLanes = std::array<AdpcmLane, kAdpcmLanes>;

/// Advances all lanes until one of them has fewer than `kAdpcmBytesAtOnce` bytes left to store.
void encodeLanes(AdpcmLanes& lanes);

}  // namespace tavrel
