// AIFF files, whole or damaged: aiff().comm(mono, 100, 16).ssnd(samples).claimSize("SSND", 1000).
#pragma once

#include <array>
#include <initializer_list>

#include "tests/support/chunk_builder.h"

namespace tavrel::test {

struct Marker {
  std::uint32_t id, position;
  std::string name = {};
};

/// A loop of an instrument: its mode and its two markers.
using Loop = std::array<std::uint32_t, 3>;

class AiffBuilder : public ChunkBuilder<AiffBuilder, std::endian::big> {
 public:
  AiffBuilder() : ChunkBuilder("FORM", "AIFF") {}

  /// The sample rate is 44100.
  AiffBuilder& comm(std::uint32_t channels, std::uint32_t frames, std::uint32_t bits) {
    Bytes content = Bytes().be16(channels).be32(frames).be16(bits);
    return chunk("COMM", content.be16(0x400E).be32(44100U << 16).be32(0));
  }
  AiffBuilder& ssnd(std::string_view samples) {
    return chunk("SSND", Bytes().fill(4 + 4).text(samples));
  }
  /// Root note 60, detune -5, the notes 1 to 127, the velocities 2 to 126, gain -6.
  AiffBuilder& inst(const Loop& sustain, const Loop& release = {}) {
    Bytes content = Bytes().u8(60).u8(0xFB).u8(1).u8(127).u8(2).u8(126).be16(0xFFFA);
    for (const auto& [mode, startId, endId] : {sustain, release}) {
      content.be16(mode).be16(startId).be16(endId);
    }
    return chunk("INST", content);
  }
  AiffBuilder& mark(std::initializer_list<Marker> markers) {
    Bytes content = Bytes().be16(static_cast<std::uint32_t>(markers.size()));
    for (const auto& [id, position, name] : markers) {
      const auto length = static_cast<std::uint32_t>(name.size());
      content.be16(id).be32(position).u8(length).text(name).fill(1 - length % 2);
    }
    return chunk("MARK", content);
  }
};

inline AiffBuilder aiff() { return {}; }

}  // namespace tavrel::test
