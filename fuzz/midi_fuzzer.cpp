// Fuzzes every operation of the MIDI classes with one hostile file.
#include <algorithm>
#include <cstdint>

#include "fuzz/hostile_file.h"
#include "fuzz/require.h"
#include "midi/midi_asset_file.h"

namespace tavrel::fuzz {

namespace {

/// Calls `use` with every event from the cursor on. Returns their number.
template <typename Use>
std::uint32_t readEvents(MidiAssetFile& file, Use use) {
  HeldEvent ev;
  std::uint32_t count = 0;
  while (file.getNextEvent(ev)) {
    ++count;
    require(ev.sequence == count);
    require(ev.dataLength <= file.imageSize);
    use(ev);
    clearEvent(ev);
  }
  return count;
}

/// Clears the running status, which an earlier pass left and a first event without a status would
/// use.
void query(MidiAssetFile& file) {
  std::uint32_t tempo = 0;
  std::uint32_t milliseconds = 0;
  float beatsPerMinute = 0;
  file.runningStatus = 0;
  const bool hasTempo = file.firstTempo(tempo);
  require(tempo < 1U << 24U);
  file.runningStatus = 0;
  require(file.firstTempoMs(milliseconds) == hasTempo && milliseconds == tempo / 1000);
  file.runningStatus = 0;
  require(file.firstTempoBpm(beatsPerMinute) == hasTempo);
}

void search(MidiAssetFile& file, std::uint8_t byte) {
  HeldEvent ev;
  while (file.findEvent(ev, byte, true)) {
    require(hasStatus(ev, byte));
  }
  file.findEvent(ev, 0x90U | (byte & 0xFU));
  while (file.findEvent(ev, 0xB0, byte, true)) {
    require(isControllerNumber(ev, byte));
  }
  file.channelHasEvents(byte, byte);
  file.rewind();
  std::uint16_t voices = 0;
  file.countPolyphony(voices);
}

}  // namespace

}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tavrel;
  const fuzz::HostileFile input(bytes, size, fuzz::LargeBlocks::refuse);
  MidiAssetFile file(input.path(), 1);
  if (!file.load()) {
    fuzz::require(file.assetData == nullptr && file.assetSize == 0);
    return 0;
  }
  fuzz::require(file.assetSize == size && std::equal(bytes, bytes + size, file.assetData));
  file.printHeaderInfo();
  const std::uint8_t byte = bytes[size - 1];
  const std::uint32_t count = fuzz::readEvents(file, [&file, byte](const MidiEvent& ev) {
    file.printEvent(ev);
    file.printEventOnChannel(ev, byte * 17U, byte % 17);
  });
  file.runningStatus = 0;
  fuzz::require(file.loadType0() == (file.format == 0));
  fuzz::require(fuzz::readEvents(file, [](const MidiEvent&) {}) == count);
  fuzz::query(file);
  fuzz::search(file, byte);
  return 0;
}
