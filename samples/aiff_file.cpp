#include "samples/aiff_file.h"

#include <algorithm>

#include "foundation/byte_order.h"
#include "foundation/console.h"
#include "samples/sound_convert.h"

namespace tavrel {

AiffFile::AiffFile(const char* fullName) : IffFile(fullName) {}

bool AiffFile::load() {
  if (!IffFile::load(bigFourCc("AIFF"))) {
    return failNotAiff();
  }
  if (!parseCommon() || !parseSound() || !parseInstrument() || !parseMarkers()) {
    return false;
  }
  loaded = true;
  convertSamples();
  return true;
}

bool AiffFile::fail(AiffFault fault) {
  fault_ = fault;
  return false;
}

bool AiffFile::failNotAiff() {
  printLine(stderr, "ERROR: Not an AIFF file.");
  switch (iffFault()) {
    case IffFault::noForm:
      return fail(AiffFault::noForm);
    case IffFault::noMemory:
      return fail(AiffFault::noMemory);
    default:
      return fail(AiffFault::cannotRead);
  }
}

/// Returns the data size in 64 bits: `frames` may be any number until `parseSound` has checked it.
std::uint64_t AiffFile::dataSizeOfFrames() const {
  switch (common.sampleSize) {
    case 8:
      return common.frames;
    case 16:
      return std::uint64_t{common.frames} * 2;
    default:
      return 0;
  }
}

/// Converts the samples to the form of a WAV file. Widths other than 8 and 16 have a size of 0.
void AiffFile::convertSamples() const {
  const auto size = static_cast<std::uint32_t>(dataSizeOfFrames());
  std::uint8_t* samples = sound.soundData;
  if (common.sampleSize == 16) {
    SoundConvert::swapBytes(samples, samples, size);
  } else {
    std::transform(samples, samples + size, samples, SoundConvert::flipSign);
  }
}

bool AiffFile::getDataSize(std::uint32_t& dataSize) const {
  dataSize = loaded ? static_cast<std::uint32_t>(dataSizeOfFrames()) : 0;
  return loaded;
}

bool AiffFile::getBitsPerSample(std::uint16_t& bits) const {
  bits = loaded ? common.sampleSize : std::uint16_t{0};
  return loaded;
}

bool AiffFile::getChannels(std::uint16_t& channels) const {
  channels = loaded ? common.channels : std::uint16_t{0};
  return loaded;
}

bool AiffFile::getSampleRate(std::uint32_t& rate) const {
  rate = loaded ? common.sampleRate : 0;
  return loaded;
}

bool AiffFile::getLoop(std::int32_t which, std::uint32_t& mode, std::uint32_t& start,
                       std::uint32_t& end) const {
  if (!loaded) {
    mode = start = end = 0;
    return false;
  }
  if (which != 1 && which != 2) {
    return false;
  }
  const AiffLoop& loop = which == 1 ? instrument.sustainLoop : instrument.releaseLoop;
  const auto isMarker = [this](std::int16_t id) { return id >= 1 && id <= markerList.count; };
  if (!isMarker(loop.startId) || !isMarker(loop.endId)) {
    return false;
  }
  start = markerList.markers[static_cast<std::size_t>(loop.startId - 1)].position;
  end = markerList.markers[static_cast<std::size_t>(loop.endId - 1)].position;
  mode = loop.mode;
  return true;
}

std::uint8_t* AiffFile::getSampleData() const { return loaded ? sound.soundData : nullptr; }

std::uint32_t AiffFile::getSustainLoopMode() const {
  return loaded ? instrument.sustainLoop.mode : 0;
}

}  // namespace tavrel
