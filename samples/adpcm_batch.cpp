#include "samples/adpcm_batch.h"

#include <algorithm>
#include <utility>

namespace tavrel {

void AdpcmBatch::add(ByteBlock block, std::size_t offset, std::uint32_t byteLength,
                     std::uint8_t* stream) {
  const std::uint32_t codeBytes = adpcmCodeBytes(byteLength);
  std::fill(stream + codeBytes, stream + adpcmStreamSize(byteLength), kAdpcmFill);
  const std::uint8_t* samples = block.get() + offset;
  AdpcmLane lane{std::move(block), samples, stream, codeBytes};
  if (byteLength >= kLongSound) {
    encodeRest(lane);
    return;
  }
  lanes_[taken_] = std::move(lane);
  ++taken_;
  if (taken_ == lanes_.size()) {
    encodeUntilSoundEnds();
  }
}

void AdpcmBatch::finish() {
  std::for_each_n(lanes_.begin(), taken_, encodeRest);
  taken_ = 0;
}

/// Encodes what is left of one sound and frees its samples.
void AdpcmBatch::encodeRest(AdpcmLane& lane) {
  encodeAdpcm(lane.state, lane.samples, lane.codeBytes, lane.codes);
  lane = {};
}

void AdpcmBatch::encodeUntilSoundEnds() {
  encodeLanes(lanes_);
  const auto goesOn = [](const AdpcmLane& lane) { return lane.codeBytes >= kAdpcmBytesAtOnce; };
  taken_ = static_cast<std::size_t>(std::partition(lanes_.begin(), lanes_.end(), goesOn) -
                                    lanes_.begin());
  std::for_each(lanes_.begin() + taken_, lanes_.end(), encodeRest);
}

}  // namespace tavrel
