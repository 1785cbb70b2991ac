// AIFF files, whole or damaged: aiff().comm(mono, 100, 16).ssnd(samples).claimSize("SSND", 1000).
#pragma once

#include <initializer_list>

#include "tests/support/chunk_builder.h"

namespace tavrel::test {

struct Marker {
  std::uint32_t id;
  std::uint32_t position;
  std::string name = {};
};

/// A loop of an instrument: its mode and its two markers.
struct Loop {
  std::uint32_t mode = 0;
  std::uint32_t startId = 0;
  std::uint32_t endId = 0;
};

class AiffBuilder : public ChunkBuilder<AiffBuilder, ByteOrder::big> {
 public:
  AiffBuilder() : ChunkBuilder("FORM", "AIFF") {}

  /// The sample rate is 44100.
  AiffBuilder& comm(std::uint32_t channels, std::uint32_t frames, std::uint32_t bits) {
    return chunk(
        "COMM",
        Bytes().be16(channels).be32(frames).be16(bits).be16(0x400E).be32(44100U << 16).be32(0));
  }
  AiffBuilder& ssnd(std::string_view samples, std::uint32_t offset = 0) {
    const std::uint32_t blockSize = 0;
    return chunk("SSND", Bytes().be32(offset).be32(blockSize).text(samples));
  }
  AiffBuilder& inst(const Loop& sustain, const Loop& release = {}) {
    const std::uint32_t root = 60;
    const std::uint32_t detune = 0xFB;  // -5
    const std::uint32_t gain = 0xFFFA;  // -6
    Bytes content;
    content.u8(root).u8(detune).u8(1).u8(127).u8(2).u8(126).be16(gain);
    for (const Loop& loop : {sustain, release}) {
      content.be16(loop.mode).be16(loop.startId).be16(loop.endId);
    }
    return chunk("INST", content);
  }
  AiffBuilder& mark(std::initializer_list<Marker> markers) {
    return mark(static_cast<std::uint32_t>(markers.size()), markers);
  }
  /// As many markers as given, of the `count` that the chunk claims.
  AiffBuilder& mark(std::uint32_t count, std::initializer_list<Marker> markers) {
    Bytes content;
    content.be16(count);
    for (const Marker& marker : markers) {
      content.be16(marker.id).be32(marker.position);
      content.u8(static_cast<std::uint32_t>(marker.name.size())).text(marker.name);
      content.fill(marker.name.size() % 2 == 0 ? 1 : 0);
    }
    return chunk("MARK", content);
  }
};

inline AiffBuilder aiff() { return {}; }

}  // namespace tavrel::test
