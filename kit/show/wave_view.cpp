// What is in a WAV file: its chunks, its format, its loops and its levels.
#include <fmt/format.h>

#include <array>
#include <new>

#include "kit/check/wave_check.h"
#include "kit/check/wave_chunks.h"
#include "kit/frame/required_text.h"
#include "kit/show/chunk_table.h"
#include "kit/show/file_view.h"
#include "kit/show/sound_levels.h"
#include "samples/riff_file.h"

namespace tavrel::kit {

namespace {

std::vector<ListedChunk> listOf(const WaveChunks& chunks) {
  std::vector<ListedChunk> list;
  for (const WaveChunk& chunk : chunks.chunks) {
    std::array<char, 4 + 1> id{};
    RiffFile::fourCcToText(chunk.info.chunkId, id.data());
    list.push_back({.id = std::string(id.data(), 4),
                    .offset = chunk.info.dataOffset,
                    .size = chunk.info.chunkSize,
                    .held = chunk.bytesHeld});
  }
  return list;
}

std::string loopsText(const WaveChunks& chunks) {
  constexpr std::array<const char*, 3> kTypes{"forward", "forwards and backwards", "backward"};
  std::string text;
  for (const SamplerLoop& loop : chunks.loops) {
    text += fmt::format(
        "loop: {}, {}-{}, {}\n",
        loop.type < kTypes.size() ? kTypes[loop.type] : fmt::format("type {}", loop.type),
        loop.start, std::uint64_t{loop.last} + 1,
        loop.count == 0 ? "without end" : fmt::format("{} times", loop.count));
  }
  return text;
}

std::uint64_t framesOf(const LoadedSound& sound) {
  const std::uint64_t frameBits = std::uint64_t{sound.bits} * sound.channels;
  return frameBits == 0 ? 0 : std::uint64_t{sound.size} * 8 / frameBits;
}

}  // namespace

FileView waveView(ShownFile& file) {
  const WaveChunks chunks = readWaveChunks(file.name().c_str());
  FileView view{.text = chunksText(listOf(chunks), chunks.chunkCount), .keyword = "WaveFile"};
  WaveFile reader(file.name().c_str());
  const std::string openedName = requiredText(reader.openedName());
  const bool isCut = openedName != file.name();
  if (isCut) {
    file.alsoName(openedName);
  }
  if (reader.load()) {
    const std::uint16_t tag = formatTagOf(reader, chunks);
    const LoadedSound sound = soundOf(reader);
    view.options.emplace_back("SampleRate", std::to_string(sound.rate));
    view.bits = sound.bits;
    view.text += formatText(tag == kPcm ? "PCM" : encodingName(tag), sound, framesOf(sound)) +
                 loopsText(chunks);
    view.text += tag == kPcm ? levelsText(sound) : "";
  } else if (reader.fault() == WaveFault::noMemory || reader.fault() == WaveFault::cannotOpen) {
    throw std::bad_alloc();
  }
  if (isCut) {
    file.forget(openedName);
  }
  return view;
}

}  // namespace tavrel::kit
