// A Standard MIDI File as the bank takes it: loads it, accepts or refuses it in words on standard
// error, and publishes its image for copying. Format 0 only, unless the caller takes any format.
#pragma once

#include <cstdint>

#include "midi/midi_file.h"

namespace tavrel {

class MidiAssetFile : public MidiFile {
 public:
  /// With `acceptedFormats` 0 only format 0 is accepted, with any other value every format is.
  MidiAssetFile(const char* name, std::uint16_t acceptedFormats);

  /// Loads and judges the file; the cursor then stands on the first event of its first track.
  bool load();

  /// Writes the image to a file that the caller has opened. False if it isn't open.
  bool writeImageTo(DiskFile& out);

  std::uint32_t assetSize = 0;              ///< `imageSize`, once `load` has succeeded
  const std::uint8_t* assetData = nullptr;  ///< `image`, once `load` has succeeded; ends with it
  std::uint16_t anyFormat;

 private:
  bool refuse(const char* reason);
};

}  // namespace tavrel
