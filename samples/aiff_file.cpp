#include "samples/aiff_file.h"

#include <algorithm>
#include <new>

#include "foundation/console.h"
#include "samples/sound_convert.h"

namespace tavrel {

namespace {

constexpr std::uint32_t kForm = iffId("AIFF");
constexpr std::uint32_t kCommon = iffId("COMM");
constexpr std::uint32_t kSound = iffId("SSND");
constexpr std::uint32_t kInstrument = iffId("INST");
constexpr std::uint32_t kMarkers = iffId("MARK");

bool damaged(const char* chunk) {
  printLine(stderr, "ERROR: AIFF file is damaged: ", chunk);
  return false;
}

std::uint16_t wordAt(const std::uint8_t* bytes) {
  std::uint16_t value = 0;
  SoundConvert::readWord(value, bytes);
  return value;
}

std::int16_t signedWordAt(const std::uint8_t* bytes) {
  return static_cast<std::int16_t>(wordAt(bytes));
}

std::uint32_t longAt(const std::uint8_t* bytes) {
  std::uint32_t value = 0;
  SoundConvert::readLong(value, bytes);
  return value;
}

AiffLoop loopAt(const std::uint8_t* bytes) {
  return {wordAt(bytes), signedWordAt(bytes + 2), signedWordAt(bytes + 4)};
}

/// The marker whose header stands at `bytes`, its name of `nameLength` bytes behind that.
AiffMarker markerAt(const std::uint8_t* bytes, std::size_t nameLength) {
  AiffMarker marker;
  marker.id = signedWordAt(bytes);
  marker.position = longAt(bytes + 2);
  const std::size_t kept = std::min(nameLength, marker.name.size() - 1);
  std::copy_n(bytes + AiffMarker::kHeaderSize, kept, marker.name.data());
  return marker;
}

}  // namespace

AiffFile::AiffFile(const char* fullName) : IffFile(fullName) {}

bool AiffFile::load() {
  if (!IffFile::load(kForm)) {
    printLine(stderr, "ERROR: Not an AIFF file.");
    return false;
  }
  if (!parseCommon() || !parseSound() || !parseInstrument() || !parseMarkers()) {
    return false;
  }
  loaded = true;
  convertSamples();
  return true;
}

bool AiffFile::parseCommon() {
  std::uint8_t* data = nullptr;
  std::uint32_t size = 0;
  if (!getChunk(kCommon, data, size)) {
    return false;
  }
  if (bytesHeld(data, size) < AiffCommon::kStoredSize) {
    return damaged("COMM");
  }
  common.id = kCommon;
  common.size = AiffCommon::kStoredSize;
  common.channels = wordAt(data);
  common.frames = longAt(data + 2);
  common.sampleSize = wordAt(data + 6);
  SoundConvert::readExtended(common.sampleRate, data + 8);
  return true;
}

bool AiffFile::parseSound() {
  std::uint8_t* data = nullptr;
  std::uint32_t size = 0;
  if (!getChunk(kSound, data, size)) {
    return false;
  }
  const std::uint32_t held = bytesHeld(data, size);
  if (held < AiffSound::kStoredSize || dataSizeOfFrames() > held - AiffSound::kStoredSize) {
    return damaged("SSND");
  }
  sound.id = kSound;
  sound.size = size;
  sound.offset = longAt(data);
  sound.blockSize = longAt(data + 4);
  sound.soundData = data + AiffSound::kStoredSize;
  return true;
}

bool AiffFile::parseInstrument() {
  std::uint8_t* data = nullptr;
  std::uint32_t size = 0;
  if (!getChunk(kInstrument, data, size)) {
    return true;
  }
  if (bytesHeld(data, size) < AiffInstrument::kStoredSize) {
    return damaged("INST");
  }
  instrument.id = kInstrument;
  instrument.size = size;
  instrument.rootNote = data[0];
  instrument.detune = static_cast<std::int8_t>(data[1]);
  instrument.loNote = data[2];
  instrument.hiNote = data[3];
  instrument.lowVelocity = data[4];
  instrument.highVelocity = data[5];
  instrument.gain = signedWordAt(data + 6);
  instrument.sustainLoop = loopAt(data + 8);
  instrument.releaseLoop = loopAt(data + 14);
  if (dump) {
    dumpInstrument();
  }
  return true;
}

bool AiffFile::parseMarkers() {
  std::uint8_t* data = nullptr;
  std::uint32_t size = 0;
  if (!getChunk(kMarkers, data, size)) {
    return true;
  }
  const std::uint32_t held = bytesHeld(data, size);
  if (held < AiffMarkerList::kStoredSize) {
    return damaged("MARK");
  }
  markerList.id = kMarkers;
  markerList.count = wordAt(data);
  if (dump) {
    dumpMarkerListHead();
  }
  const std::uint32_t tableSize = held - AiffMarkerList::kStoredSize;
  // Room for as many as the chunk can hold, whatever it claims.
  const std::uint32_t room =
      std::min<std::uint32_t>(markerList.count, tableSize / AiffMarker::kHeaderSize);
  markerList.markers.reset(new (std::nothrow) AiffMarker[room]);
  return markerList.markers && parseMarkerTable(data + AiffMarkerList::kStoredSize, tableSize);
}

bool AiffFile::parseMarkerTable(const std::uint8_t* bytes, std::uint32_t left) {
  for (std::uint16_t i = 0; i < markerList.count; ++i) {
    if (left < AiffMarker::kHeaderSize) {
      return damaged("MARK");
    }
    const std::uint32_t nameLength = bytes[AiffMarker::kHeaderSize - 1];
    const std::uint32_t unpadded = AiffMarker::kHeaderSize + nameLength;
    if (left < unpadded) {
      return damaged("MARK");
    }
    AiffMarker& marker = markerList.markers[i];
    marker = markerAt(bytes, nameLength);
    if (dump) {
      dumpMarker(marker);
    }
    const std::uint32_t padded = std::min(left, unpadded + unpadded % 2);
    bytes += padded;
    left -= padded;
  }
  return true;
}

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

/// From the file's form into that of a WAV file. Other widths than 8 and 16 bits have a size of 0.
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
