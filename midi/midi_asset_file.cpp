#include "midi/midi_asset_file.h"

#include "foundation/console.h"

namespace tavrel {

MidiAssetFile::MidiAssetFile(const char* name, std::uint16_t acceptedFormats)
    : MidiFile(name), anyFormat(acceptedFormats) {}

bool MidiAssetFile::load() {
  assetSize = 0;
  assetData = nullptr;
  return loadImage() && judge();
}

bool MidiAssetFile::judge() {
  if (!readHeaderChunk() || !readTrackHeader()) {
    return failRejected("\" is not a Standard MIDI File");
  }
  if (anyFormat == 0 && format != 0) {
    return failRejected("\" is not a type 0 Standard MIDI File");
  }
  assetSize = imageSize;
  assetData = image.get();
  return true;
}

bool MidiAssetFile::writeImageTo(DiskFile& out) {
  return out.isOpen && out.write(image.get(), imageSize);
}

bool MidiAssetFile::failRejected(const char* reason) {
  printLine(stderr, "Error: The file \"", textOrEmpty(disk_.fileName.name), reason);
  return false;
}

}  // namespace tavrel
