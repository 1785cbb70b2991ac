// The parsers of AiffFile, one for each chunk that it reads. They return false if `load` must fail.
#include <algorithm>
#include <new>

#include "foundation/byte_order.h"
#include "foundation/console.h"
#include "samples/aiff_file.h"
#include "samples/sound_convert.h"

namespace tavrel {

/// Content of a chunk, as far as the file holds it.
struct AiffFile::Content {
  std::uint8_t* data = nullptr;
  std::uint32_t size = 0;
  std::uint32_t statedSize = 0;
};

namespace {

constexpr std::uint32_t kCommon = bigFourCc("COMM");
constexpr std::uint32_t kSound = bigFourCc("SSND");
constexpr std::uint32_t kInstrument = bigFourCc("INST");
constexpr std::uint32_t kMarkers = bigFourCc("MARK");

std::int16_t signedWordAt(const std::uint8_t* bytes) {
  return static_cast<std::int16_t>(loadBig16(bytes));
}

AiffLoop loopAt(const std::uint8_t* bytes) {
  return {loadBig16(bytes), signedWordAt(bytes + 2), signedWordAt(bytes + 4)};
}

/// Returns the marker whose header is at `bytes`, followed by a name of `nameLength` bytes.
AiffMarker markerAt(const std::uint8_t* bytes, std::size_t nameLength) {
  AiffMarker marker;
  marker.id = signedWordAt(bytes);
  marker.position = loadBig32(bytes + 2);
  const std::size_t kept = std::min(nameLength, marker.name.size() - 1);
  std::copy_n(bytes + AiffMarker::kHeaderSize, kept, marker.name.data());
  return marker;
}

}  // namespace

bool AiffFile::failDamaged(std::uint32_t chunkId) {
  IdText text;
  idToText(chunkId, text.data());
  printLine(stderr, "ERROR: AIFF file is damaged: ", text.data());
  damagedChunk_ = chunkId;
  return fail(AiffFault::damaged);
}

/// Finds the content of the first chunk with `id`. Reports the chunk as damaged if the file holds
/// fewer than `leastSize` bytes of it.
AiffFile::Presence AiffFile::findContent(std::uint32_t id, std::uint32_t leastSize,
                                         Content& content) {
  if (!getChunk(id, content.data, content.statedSize)) {
    return Presence::missing;
  }
  content.size = bytesHeld(content.data, content.statedSize);
  if (content.size < leastSize) {
    failDamaged(id);
    return Presence::damaged;
  }
  return Presence::present;
}

/// Does the same for a chunk without which the file isn't loaded.
bool AiffFile::findRequired(std::uint32_t id, std::uint32_t leastSize, AiffFault ifMissing,
                            Content& content) {
  const Presence presence = findContent(id, leastSize, content);
  if (presence == Presence::missing) {
    fail(ifMissing);
  }
  return presence == Presence::present;
}

bool AiffFile::parseCommon() {
  Content content;
  if (!findRequired(kCommon, AiffCommon::kStoredSize, AiffFault::noCommon, content)) {
    return false;
  }
  common.id = kCommon;
  common.size = AiffCommon::kStoredSize;
  common.channels = loadBig16(content.data);
  common.frames = loadBig32(content.data + 2);
  common.sampleSize = loadBig16(content.data + 6);
  SoundConvert::readExtended(common.sampleRate, content.data + 8);
  return true;
}

bool AiffFile::parseSound() {
  Content content;
  if (!findRequired(kSound, AiffSound::kStoredSize, AiffFault::noSound, content)) {
    return false;
  }
  if (dataSizeOfFrames() > content.size - AiffSound::kStoredSize) {
    return failDamaged(kSound);
  }
  sound.id = kSound;
  sound.size = content.statedSize;
  sound.offset = loadBig32(content.data);
  sound.blockSize = loadBig32(content.data + 4);
  sound.soundData = content.data + AiffSound::kStoredSize;
  return true;
}

bool AiffFile::parseInstrument() {
  Content content;
  const Presence presence = findContent(kInstrument, AiffInstrument::kStoredSize, content);
  if (presence != Presence::present) {
    return presence == Presence::missing;
  }
  instrument.id = kInstrument;
  instrument.size = content.statedSize;
  instrument.rootNote = content.data[0];
  instrument.detune = static_cast<std::int8_t>(content.data[1]);
  instrument.loNote = content.data[2];
  instrument.hiNote = content.data[3];
  instrument.lowVelocity = content.data[4];
  instrument.highVelocity = content.data[5];
  instrument.gain = signedWordAt(content.data + 6);
  instrument.sustainLoop = loopAt(content.data + 8);
  instrument.releaseLoop = loopAt(content.data + 14);
  if (dump) {
    dumpInstrument();
  }
  return true;
}

bool AiffFile::parseMarkers() {
  Content content;
  const Presence presence = findContent(kMarkers, AiffMarkerList::kStoredSize, content);
  if (presence != Presence::present) {
    return presence == Presence::missing;
  }
  markerList.id = kMarkers;
  markerList.count = loadBig16(content.data);
  if (dump) {
    dumpMarkerListHead();
  }
  const std::uint32_t tableSize = content.size - AiffMarkerList::kStoredSize;
  // Never more markers than the chunk can hold, whatever the count.
  const std::uint32_t capacity =
      std::min<std::uint32_t>(markerList.count, tableSize / AiffMarker::kHeaderSize);
  markerList.markers.reset(new (std::nothrow) AiffMarker[capacity]);
  if (!markerList.markers) {
    return fail(AiffFault::noMemory);
  }
  return parseMarkerTable(content.data + AiffMarkerList::kStoredSize, tableSize);
}

bool AiffFile::parseMarkerTable(const std::uint8_t* bytes, std::uint32_t left) {
  for (std::uint16_t i = 0; i < markerList.count; ++i) {
    if (left < AiffMarker::kHeaderSize) {
      return failDamaged(kMarkers);
    }
    const std::uint32_t nameLength = bytes[AiffMarker::kHeaderSize - 1];
    const std::uint32_t unpadded = AiffMarker::kHeaderSize + nameLength;
    if (left < unpadded) {
      return failDamaged(kMarkers);
    }
    AiffMarker& marker = markerList.markers[i];
    marker = markerAt(bytes, nameLength);
    if (dump) {
      dumpMarker(marker);
    }
    const std::uint32_t padded = std::min(left, unpadded + unpadded % 2);  // the last may lack it
    bytes += padded;
    left -= padded;
  }
  return true;
}

}  // namespace tavrel
