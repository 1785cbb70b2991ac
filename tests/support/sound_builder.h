// WAV and AIFF files, whole or damaged:
//   wav().fmt(mono, 16, 22050).data(samples).claimDataSize(1000)
//   aiff().comm(mono, 100, 16).ssnd(samples).claimSize("SSND", 1000)
#pragma once

#include <array>
#include <bit>
#include <initializer_list>

#include "tests/support/bytes.h"

namespace tavrel::test {

constexpr std::uint32_t mono = 1;
constexpr std::uint32_t stereo = 2;

/// A file of chunks after a form header, RIFF or IFF. Sizes and pads are right unless damaged,
/// which must be done after the last chunk. Each operation returns the derived builder, `Self`.
template <typename Self, std::endian order>
class ChunkBuilder : public Bytes {
 public:
  ChunkBuilder(std::string_view formId, std::string_view formType) {
    text(formId).text(number(4)).text(formType);
  }
  Self& chunk(std::string_view id, std::string_view content) {
    text(id).text(number(content.size())).text(content).fill(content.size() % 2);
    return claimFormSize(size() - 8);
  }
  Self& form(std::string_view type) { return put(8, type); }
  Self& claimFormSize(std::size_t size) { return put(4, number(size)); }
  /// The size field of the first chunk called `id` says `size`.
  Self& claimSize(std::string_view id, std::size_t size) { return put(find(id) + 4, number(size)); }

 private:
  static std::string number(std::size_t value) {
    return order == std::endian::little ? Bytes().le32(value) : Bytes().be32(value);
  }
  Self& put(std::size_t position, std::string_view bytes) {
    replace(position, bytes.size(), bytes);
    return static_cast<Self&>(*this);
  }
};

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
  WavBuilder& claimDataSize(std::size_t size) { return claimSize("data", size); }
};

inline WavBuilder wav() { return {}; }

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
    Bytes content = Bytes().be16(markers.size());
    for (const auto& [id, position, name] : markers) {
      content.be16(id).be32(position).u8(name.size()).text(name).fill(1 - name.size() % 2);
    }
    return chunk("MARK", content);
  }
};

inline AiffBuilder aiff() { return {}; }

}  // namespace tavrel::test
