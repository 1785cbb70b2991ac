// Encodes many sounds in one thread, sixteen of them side by side, to the same streams as
// AdpcmEncoder. A sound waits in the batch until all lanes are taken, and the batch is then encoded
// until the shortest sound ends. Nothing is allocated, so no operation fails.
//
// Owns the samples of the sounds that wait and frees each block as soon as its sound is encoded.
// Fewer than 64 MiB of samples wait. Borrows the streams: each must outlive `finish` or the batch,
// whichever comes first. A sound that still waits when the batch is destroyed is left incomplete.
#pragma once

#include <cstddef>
#include <cstdint>

#include "foundation/byte_block.h"
#include "samples/adpcm_lanes.h"

namespace tavrel {

class AdpcmBatch {
 public:
  /// Sounds of this many bytes or more don't wait, which bounds the memory that does.
  static constexpr std::size_t kLongSound = (std::size_t{64} << 20U) / kAdpcmLanes;

  /// Adds the sound whose samples are the first `byteLength` bytes of `block`: little-endian words.
  /// `stream` has `adpcmStreamSize(byteLength)` bytes, all of which are written by the end of
  /// `finish`.
  void add(ByteBlock block, std::uint32_t byteLength, std::uint8_t* stream);

  /// Encodes whatever waits. The batch is then empty and can be used again.
  void finish();

 private:
  static void encodeRest(AdpcmLane lane);
  void encodeUntilSoundEnds();

  AdpcmLanes lanes_;
  std::size_t taken_ = 0;  ///< lanes in use, from the first
};

}  // namespace tavrel
