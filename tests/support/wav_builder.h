// WAV files, whole or damaged: wav().fmt(mono, 16, 22050).data(samples).claimDataSize(1000).
#pragma once

#include "tests/support/chunk_builder.h"

namespace tavrel::test {

class WavBuilder : public ChunkBuilder<WavBuilder, std::endian::little> {
 public:
  WavBuilder() : ChunkBuilder("RIFF", "WAVE") {}

  /// The 16 bytes of a plain PCM format block.
  WavBuilder& fmt(std::uint32_t channels, std::uint32_t bits, std::uint32_t rate) {
    const std::uint32_t frame = channels * ((bits + 7) / 8);
    Bytes block = Bytes().le16(1).le16(channels).le32(rate).le32(rate * frame);
    return chunk("fmt ", block.le16(frame).le16(bits));
  }
  WavBuilder& data(std::string_view samples) { return chunk("data", samples); }
  WavBuilder& claimDataSize(std::uint32_t size) { return claimSize("data", size); }
};

inline WavBuilder wav() { return {}; }

}  // namespace tavrel::test
