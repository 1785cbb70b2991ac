// A Standard MIDI File that a test has built: written to a directory of its own, and loaded.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "midi/midi_asset_file.h"
#include "tests/support/midi_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

struct LoadedMidi {
  /// Accepts any format unless `anyFormat` is 0.
  explicit LoadedMidi(const std::string& content, std::uint16_t anyFormat = 1)
      : file(directory.write("song.mid", content).c_str(), anyFormat) {
    testing::internal::CaptureStderr();
    accepted = file.load();
    errors = testing::internal::GetCapturedStderr();
  }
  explicit LoadedMidi(const Events& track) : LoadedMidi(midi().track(track).str()) {}

  TemporaryDirectory directory;
  MidiAssetFile file;
  bool accepted = false;
  std::string errors;
};

}  // namespace tavrel::test
