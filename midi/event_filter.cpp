#include <algorithm>
#include <array>

#include "midi/midi_file.h"

namespace tavrel {

namespace {

/// A mask bit that selects the events of one kind.
struct KindFilter {
  std::uint32_t bit;
  bool (*matches)(const MidiEvent& ev);
};

constexpr std::uint32_t kAllControllers = 0x008;

constexpr std::array<KindFilter, 9> kKindFilters{{
    {0x001, isNoteOn},
    {0x002, isNoteOff},
    {0x004, isPolyPressure},
    {kAllControllers, isController},
    {0x010, isProgramChange},
    {0x020, isChannelPressure},
    {0x040, isPitchWheel},
    {0x080, isSysEx},
    {0x100, isMeta},
}};

/// A mask bit that selects one controller.
struct ControllerFilter {
  std::uint32_t bit;
  std::uint8_t number;
};

constexpr std::uint32_t kBankSelectLsb = 0x200;

constexpr std::array<ControllerFilter, 3> kControllerFilters{{
    {kBankSelectLsb, 32},
    {0x400, 7},
    {0x800, 10},
}};

bool isSelected(const MidiEvent& ev, std::uint32_t mask) {
  if ((mask & kBankSelectLsb) != 0) {
    mask &= ~kAllControllers;  // this bit limits the controllers to those with a bit of their own
  }
  const auto selectsKind = [&](const KindFilter& filter) {
    return (mask & filter.bit) != 0 && filter.matches(ev);
  };
  const auto selectsController = [&](const ControllerFilter& filter) {
    return (mask & filter.bit) != 0 && isControllerNumber(ev, filter.number);
  };
  return std::any_of(kKindFilters.begin(), kKindFilters.end(), selectsKind) ||
         std::any_of(kControllerFilters.begin(), kControllerFilters.end(), selectsController);
}

}  // namespace

void MidiFile::printEventFiltered(const MidiEvent& ev, std::uint32_t mask) {
  if (isSelected(ev, mask)) {
    printEvent(ev);
  }
}

void MidiFile::printEventOnChannel(const MidiEvent& ev, std::uint32_t mask, std::uint8_t channel) {
  if (channel == 0 || channel == ev.channel) {
    printEventFiltered(ev, mask);
  }
}

}  // namespace tavrel
