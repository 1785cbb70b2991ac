// The lines in which AiffFile prints an instrument and markers if `dump` is set.
#include <array>

#include "foundation/console.h"
#include "samples/aiff_file.h"

namespace tavrel {

namespace {

constexpr std::array<const char*, 3> kLoopModes = {"No Loop Set", "Forward",
                                                   "Forwards and Backwards"};
constexpr const char* kShortRule = "----------------------------------";
constexpr const char* kLongRule = "----------------------------------------------------";

void printTitle(const char* title) {
  printLine(stdout, "-------------- ", title, " --------------");
  printLine(stdout);
}

void printNumber(const char* label, std::int64_t number) { printLine(stdout, label, number); }

void printLoop(const char* label, const AiffLoop& loop) {
  printLine(stdout, label);
  printUnterminated(stdout, "Mode:          ");
  if (loop.mode < kLoopModes.size()) {
    printLine(stdout, kLoopModes[loop.mode]);  // an unknown mode prints not even a line feed
  }
  printNumber("Start ID:      ", loop.startId);
  printNumber("End ID:        ", loop.endId);
}

}  // namespace

void AiffFile::dumpInstrument() const {
  printTitle("Instrument");
  printNumber("Id:            ", instrument.id);
  printNumber("Size:          ", instrument.size);
  printNumber("Root Note:     ", instrument.rootNote);
  printNumber("Detune:        ", instrument.detune);
  printNumber("Lo Note:       ", instrument.loNote);
  printNumber("Hi Note:       ", instrument.hiNote);
  printNumber("Low Velocity:  ", instrument.lowVelocity);
  printNumber("High Velocity: ", instrument.highVelocity);
  printNumber("Gain: ", instrument.gain);
  printLoop("Sustain Loop:  ", instrument.sustainLoop);
  printLoop("Release Loop:  ", instrument.releaseLoop);
  printLine(stdout, kLongRule);
}

void AiffFile::dumpMarkerListHead() const {
  printTitle("MARK");
  printLine(stdout, "Size:              Varies");
  printNumber("Number of Markers: ", markerList.count);
  printLine(stdout, kShortRule);
}

void AiffFile::dumpMarker(const AiffMarker& marker) {
  printTitle("Marker");
  printNumber("Id:       ", marker.id);
  printNumber("Position: ", marker.position);
  printLine(stdout, "Name:     ", marker.name.data());
  printLine(stdout, kShortRule);
}

}  // namespace tavrel
