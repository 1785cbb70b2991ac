// Standard MIDI File as an asset: loads it, accepts or rejects it, and publishes its image. Accepts
// format 0 only, unless the caller accepts every format. Operations return false on failure; any
// message has been printed on standard error.
#pragma once

#include <cstdint>

#include "midi/midi_file.h"

namespace tavrel {

class MidiAssetFile : public MidiFile {
 public:
  /// Accepts only format 0 if `acceptedFormats` is 0, else every format.
  MidiAssetFile(const char* name, std::uint16_t acceptedFormats);

  /// Runs `loadImage` and `judge`.
  bool load();

  /// Reads the headers of the image just loaded and accepts or rejects the file. Leaves the cursor
  /// at the first event of the first track.
  bool judge();

  // Not used by the tool; for programs that copy sequences.

  /// Writes the image to a file that the caller has opened. Returns false if it isn't open.
  bool writeImageTo(DiskFile& out);

  std::uint32_t assetSize = 0;              ///< `imageSize` of an accepted file, else 0
  const std::uint8_t* assetData = nullptr;  ///< `image` of an accepted file, else null; borrowed
  std::uint16_t anyFormat;

 private:
  bool failRejected(const char* reason);
};

}  // namespace tavrel
