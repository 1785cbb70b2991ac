// WAV files, whole or damaged: wav().fmt(mono, 16, 22050).data(samples).claimDataSize(1000).
#pragma once

#include "tests/support/chunk_builder.h"

namespace tavrel::test {

class WavBuilder : public ChunkBuilder<WavBuilder, ByteOrder::little> {
 public:
  WavBuilder() : ChunkBuilder("RIFF", "WAVE") {}

  /// The 16 bytes of a plain PCM format block, and then `more`.
  WavBuilder& fmt(std::uint32_t channels, std::uint32_t bits, std::uint32_t rate,
                  std::string_view more = "") {
    return chunk("fmt ", format(channels, bits, rate) + std::string(more));
  }
  WavBuilder& data(std::string_view samples) { return chunk("data", samples); }
  WavBuilder& claimDataSize(std::uint32_t size) { return claimSize("data", size); }

  static std::string format(std::uint32_t channels, std::uint32_t bits, std::uint32_t rate) {
    const std::uint32_t frameSize = channels * ((bits + 7) / 8);
    const std::uint32_t pcm = 1;
    return Bytes()
        .le16(pcm)
        .le16(channels)
        .le32(rate)
        .le32(rate * frameSize)
        .le16(frameSize)
        .le16(bits);
  }
};

inline WavBuilder wav() { return {}; }

}  // namespace tavrel::test
