#include "midi/midi_asset_file.h"

#include "foundation/console.h"

namespace tavrel {

MidiAssetFile::MidiAssetFile(const char* name, std::uint16_t acceptedFormats)
    : MidiFile(name), anyFormat(acceptedFormats) {}

bool MidiAssetFile::load() {
  assetSize = 0;
  assetData = nullptr;
  if (!loadImage()) {
    return false;
  }
  if (!readHeaderChunk() || !readTrackHeader()) {
    return refuse("\" is not a Standard MIDI File");
  }
  if (anyFormat == 0 && format != 0) {
    return refuse("\" is not a type 0 Standard MIDI File");
  }
  assetSize = imageSize;
  assetData = image.get();
  return true;
}

bool MidiAssetFile::writeImageTo(DiskFile& out) {
  return out.isOpen && isImageWhole() && out.write(image.get(), imageSize);
}

bool MidiAssetFile::refuse(const char* reason) {
  printLine(stderr, "Error: The file \"", textOrEmpty(disk.fileName.name), reason);
  return false;
}

}  // namespace tavrel
