#include "samples/adpcm_batch.h"

#include <algorithm>
#include <utility>

namespace tavrel {

void AdpcmBatch::add(ByteBlock block, std::uint32_t byteLength, std::uint8_t* stream) {
  const std::uint32_t codeBytes = adpcmCodeBytes(byteLength);
  std::fill(stream + codeBytes, stream + adpcmStreamSize(byteLength), kAdpcmFill);
  const std::uint8_t* samples = block.get();
  AdpcmLane lane{std::move(block), samples, stream, codeBytes};
  if (byteLength >= kLongSound) {
    encodeRest(std::move(lane));
    return;
  }
  lanes_[taken_] = std::move(lane);
  ++taken_;
  if (taken_ == lanes_.size()) {
    encodeUntilSoundEnds();
  }
}

void AdpcmBatch::finish() {
  while (taken_ > 0) {
    --taken_;
    encodeRest(std::move(lanes_[taken_]));
  }
}

/// Encodes what is left of one sound and frees its samples.
void AdpcmBatch::encodeRest(AdpcmLane lane) {
  encodeAdpcm(lane.state, lane.samples, lane.codeBytes, lane.codes);
}

void AdpcmBatch::encodeUntilSoundEnds() {
  encodeLanes(lanes_);
  const auto goesOn = [](const AdpcmLane& lane) { return lane.codeBytes / kAdpcmBytesAtOnce != 0; };
  auto* const ended = std::partition(lanes_.begin(), lanes_.end(), goesOn);
  std::for_each(ended, lanes_.end(), [](AdpcmLane& lane) { encodeRest(std::move(lane)); });
  taken_ = static_cast<std::size_t>(ended - lanes_.begin());
}

}  // namespace tavrel
