// What is in an AIFF file: its chunks, its format, its instrument, its markers and its levels.
#include <fmt/format.h>

#include <array>
#include <new>

#include "kit/check/wave_check.h"
#include "kit/check/wave_chunks.h"
#include "kit/frame/display_text.h"
#include "kit/frame/text_table.h"
#include "kit/show/chunk_table.h"
#include "kit/show/file_view.h"
#include "kit/show/sound_levels.h"
#include "midi/midi_file.h"
#include "samples/aiff_file.h"
#include "samples/sound_convert.h"

namespace tavrel::kit {

namespace {

constexpr std::size_t kFormHeaderSize = 4 + 4 + 4;
constexpr std::size_t kChunkHeaderSize = 4 + 4;

std::vector<ListedChunk> listOf(const AiffFile& file) {
  std::vector<ListedChunk> list;
  for (const IffChunk& chunk : file.chunkList()) {
    if (list.size() == WaveChunks::kMostListed) {
      break;
    }
    IffFile::IdText id;
    IffFile::idToText(chunk.id, id.data());
    const auto distance = static_cast<std::uint64_t>(chunk.data - file.chunkList().front().data);
    list.push_back({.id = std::string(id.data(), 4),
                    .offset = kFormHeaderSize + kChunkHeaderSize + distance,
                    .size = chunk.size,
                    .held = file.bytesHeld(chunk.data, chunk.size)});
  }
  return list;
}

/// Returns a line about a loop; `which` is its number for `getLoop`.
std::string loopText(const AiffFile& file, std::int32_t which, const AiffLoop& loop) {
  constexpr std::array<const char*, 3> kModes{"none", "forward", "forwards and backwards"};
  std::string mode =
      loop.mode < kModes.size() ? kModes[loop.mode] : fmt::format("mode {}", loop.mode);
  std::uint32_t storedMode = 0;
  std::uint32_t start = 0;
  std::uint32_t end = 0;
  if (loop.mode == 0) {
    return mode;
  }
  return file.getLoop(which, storedMode, start, end)
             ? fmt::format("{}, {}-{}, between markers {} and {}", mode, start, end, loop.startId,
                           loop.endId)
             : fmt::format("{}, between markers {} and {}, which aren't both there", mode,
                           loop.startId, loop.endId);
}

std::string instrumentText(const AiffFile& file) {
  constexpr std::int32_t kUnitsPerSemitone = 100 * 65536;
  const AiffInstrument& instrument = file.instrument;
  if (instrument.id == 0) {
    return "";
  }
  return fmt::format(
      "\ninstrument\n"
      "  root note     {} ({}), {:.2f} Hz\n"
      "  detune        {} cents\n"
      "  notes         {} to {}\n"
      "  velocities    {} to {}\n"
      "  gain          {} dB\n"
      "  sustain loop  {}\n"
      "  release loop  {}\n",
      MidiFile().noteName(instrument.rootNote, 0), instrument.rootNote,
      SoundConvert::pitchToHertz(instrument.rootNote * kUnitsPerSemitone), instrument.detune,
      instrument.loNote, instrument.hiNote, instrument.lowVelocity, instrument.highVelocity,
      instrument.gain, loopText(file, 1, instrument.sustainLoop),
      loopText(file, 2, instrument.releaseLoop));
}

std::string markersText(const AiffMarkerList& list) {
  TextTable table({{"marker", Alignment::right},
                   {"id", Alignment::right},
                   {"frame", Alignment::right},
                   {"name"}});
  for (std::uint16_t i = 0; i < list.count; ++i) {
    const AiffMarker& marker = list.markers[i];
    table.add({std::to_string(i + 1), std::to_string(marker.id), std::to_string(marker.position),
               displayText(marker.name.data())});
  }
  return list.count == 0 ? "" : '\n' + table.text();
}

}  // namespace

FileView aiffView(const ShownFile& file) {
  AiffFile reader(file.name().c_str());
  FileView view{.keyword = "WaveFile"};
  if (reader.load()) {
    const LoadedSound sound = soundOf(reader);
    view.options.emplace_back("SampleRate", std::to_string(sound.rate));
    if (reader.getSustainLoopMode() != 0) {
      view.options.emplace_back("Loop", "1");
      view.loops = true;
    }
    view.bits = sound.bits;
    view.text = formatText("PCM", sound, reader.common.frames) + instrumentText(reader) +
                markersText(reader.markerList) + levelsText(sound);
  } else if (reader.fault() == AiffFault::noMemory ||
             (reader.fault() == AiffFault::cannotRead && file.isHeld())) {
    throw std::bad_alloc();
  }
  view.text = chunksText(listOf(reader), reader.chunkList().size()) + view.text;
  return view;
}

}  // namespace tavrel::kit
