#include "samples/aiff_writer.h"

#include <bit>
#include <utility>

#include "foundation/byte_order.h"

namespace tavrel {

namespace {

constexpr std::uint8_t kMiddleC = 60;
constexpr std::uint8_t kHighest = 127;  // note or velocity
constexpr std::uint16_t kForward = 1;
constexpr std::uint16_t kStartMarker = 1;
constexpr std::uint16_t kEndMarker = 2;

/// Appends numbers and chunks to a file.
class Writer {
 public:
  void byte(std::uint8_t value) { bytes_.push_back(value); }
  void word(std::uint16_t value) { storeBig16(append(2), value); }
  void longWord(std::uint32_t value) { storeBig32(append(4), value); }

  void chunk(const char* id, std::uint32_t contentSize) {
    longWord(bigFourCc(id));
    longWord(contentSize);
  }

  /// Appends an 80-bit extended float: sign and exponent, then a mantissa with its leading one.
  void extended(std::uint32_t value) {
    constexpr int kExponentOfTopBit = 16383 + 31;
    const int unusedBits = std::countl_zero(value);
    word(static_cast<std::uint16_t>(value != 0 ? kExponentOfTopBit - unusedBits : 0));
    longWord(value != 0 ? value << static_cast<unsigned>(unusedBits) : 0);
    longWord(0);
  }

  std::vector<std::uint8_t> take() { return std::move(bytes_); }

 private:
  std::uint8_t* append(std::size_t count) {
    bytes_.resize(bytes_.size() + count);
    return bytes_.data() + bytes_.size() - count;
  }

  std::vector<std::uint8_t> bytes_;
};

void writeCommon(Writer& file, const AiffFileFormat& format, std::uint32_t sampleBytes) {
  file.chunk("COMM", AiffCommon::kStoredSize);
  file.word(format.channels);
  file.longWord(sampleBytes / (format.channels * (format.bitsPerSample / 8U)));
  file.word(format.bitsPerSample);
  file.extended(format.framesPerSecond);
}

void writeMarker(Writer& file, std::uint16_t id, std::uint32_t position) {
  file.word(id);
  file.longWord(position);
  file.word(0);  // an empty name: its length and a pad byte
}

void writeMarkers(Writer& file, const AiffMarkedLoop& loop) {
  file.chunk("MARK", AiffMarkerList::kStoredSize + 2 * (AiffMarker::kHeaderSize + 1));
  file.word(2);
  writeMarker(file, kStartMarker, loop.start);
  writeMarker(file, kEndMarker, loop.end);
}

/// Writes an instrument for all notes and velocities, without detuning, gain and release loop.
void writeInstrument(Writer& file) {
  file.chunk("INST", AiffInstrument::kStoredSize);
  for (const std::uint8_t field :
       {kMiddleC, std::uint8_t{0}, std::uint8_t{0}, kHighest, std::uint8_t{1}, kHighest}) {
    file.byte(field);
  }
  file.word(0);
  for (const std::uint16_t field : {kForward, kStartMarker, kEndMarker}) {
    file.word(field);
  }
  for (int field = 0; field < 3; ++field) {
    file.word(0);
  }
}

}  // namespace

std::vector<std::uint8_t> aiffFileHeader(const AiffFileFormat& format, std::uint32_t sampleBytes) {
  Writer file;
  file.chunk("FORM", aiffHeaderSize(format) - (4 + 4) + sampleBytes + sampleBytes % 2);
  file.longWord(bigFourCc("AIFF"));
  writeCommon(file, format, sampleBytes);
  if (format.loop) {
    writeMarkers(file, *format.loop);
    writeInstrument(file);
  }
  file.chunk("SSND", AiffSound::kStoredSize + sampleBytes);
  file.longWord(0);
  file.longWord(0);
  return file.take();
}

std::vector<std::uint8_t> aiffFileTail(std::uint32_t sampleBytes) {
  return std::vector<std::uint8_t>(sampleBytes % 2);
}

}  // namespace tavrel
