// What is in a MIDI file: its header, a summary, and each event of its first track.
#include <fmt/format.h>

#include <new>
#include <string_view>
#include <utility>

#include "kit/bank/asset_facts.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/display_text.h"
#include "kit/show/file_view.h"
#include "midi/midi_file.h"
#include "midi/sequence_summary.h"

namespace tavrel::kit {

namespace {

std::string tempoText(std::uint32_t microseconds) {
  const auto bpm = beatsPerMinute(static_cast<std::int32_t>(microseconds));
  return bpm ? fmt::format("{:.2f} bpm", *bpm) : "no tempo";
}

/// Returns the dump's text of an event without the time before it and the line end after it. The
/// dump rounds tempos to milliseconds per quarter note, so they are printed here.
std::string eventText(MidiFile& file, const MidiEvent& event, CapturedConsole& printed) {
  if (isMetaType(event, kMetaTempo)) {
    return fmt::format("Meta  -  Tempo - {}", tempoText(tempoOf(event)));
  }
  file.printEvent(event);
  std::string text = std::exchange(printed.text, {});
  text.erase(0, std::string_view(file.timeText(event)).size());
  text.erase(0, text.find_first_not_of('\t'));
  if (text.ends_with('\n')) {
    text.resize(text.find_last_not_of(" \n") + 1);
    return displayText(text);
  }
  return isMeta(event) ? fmt::format("{}type 0x{:02X}, {}", text, event.metaType,
                                     countText(event.dataLength, "byte"))
                       : fmt::format("status 0x{:02X}, {}", event.status,
                                     countText(event.dataLength, "byte"));
}

/// Moves to the first event.
void restart(MidiFile& file) {
  file.runningStatus = 0;
  file.rewind();
}

/// Returns a line for each event up to the end of the track.
std::string eventsText(MidiFile& file) {
  CapturedConsole printed(stdout);
  std::string text = "\nbar:beat:tick\n";
  HeldEvent event;
  restart(file);
  do {
    clearEvent(event);
    if (!file.getNextEvent(event)) {
      requireMemory(file);
      return text + "the track breaks off here\n";
    }
    text += fmt::format("{:>13}  {}\n", file.timeText(event), eventText(file, event, printed));
  } while (!isMetaType(event, kMetaEndOfTrack));
  return text;
}

/// Returns what a tick is, in words.
std::string divisionText(std::uint16_t division) {
  const auto frames = static_cast<std::int8_t>(division >> 8U);
  return frames < 0
             ? fmt::format("{} frames per second, {} ticks per frame", -frames, division & 0xFFU)
             : fmt::format("{} ticks per quarter note", division);
}

/// Returns the text of the first track name in the track, or nothing.
std::string trackName(MidiFile& file) {
  constexpr std::uint32_t kTrackName = 3;
  HeldEvent event;
  restart(file);
  for (bool found = file.findEvent(event, kMetaStatus, true);
       found && !isMetaType(event, kMetaEndOfTrack);
       found = file.findEvent(event, kMetaStatus, true)) {
    if (isMetaType(event, kTrackName)) {
      return displayText({reinterpret_cast<const char*>(event.data), event.dataLength});
    }
  }
  requireMemory(file);
  return "";
}

std::string headerText(const MidiFile& file) {
  return fmt::format("\nheader: type {}, {}, {}\n", file.format,
                     countText(file.numberOfTracks, "track"), divisionText(file.ppqn));
}

std::string trackText(MidiFile& file) {
  SequenceSummary summary;
  std::string text = fmt::format("first track: {}", countText(file.trackLength, "byte"));
  if (summarize(file, summary)) {
    text += fmt::format(", {}, {}{}", countText(summary.events, "event"),
                        countText(summary.polyphony, "voice"),
                        summary.seconds ? ", " + durationText(*summary.seconds) : "");
  }
  requireMemory(file);
  std::uint32_t tempo = 0;
  restart(file);
  if (file.firstTempo(tempo)) {
    text += fmt::format(", {} at first", tempoText(tempo));
  }
  requireMemory(file);
  const std::string name = trackName(file);
  return text + (name.empty() ? "\n" : fmt::format(", named {}\n", name));
}

}  // namespace

FileView sequenceView(const ShownFile& file) {
  FileView view{.keyword = "MidiFileType0"};
  MidiFile reader(file.name().c_str());
  const bool isLoaded = reader.loadImage();
  if (!isLoaded && file.isHeld()) {
    throw std::bad_alloc();
  }
  if (isLoaded && reader.readHeaderChunk()) {
    view.text = headerText(reader);
    if (reader.readTrackHeader()) {
      view.text += trackText(reader) + eventsText(reader);
    }
  }
  return view;
}

}  // namespace tavrel::kit
