// Time to read the events of an 8 MB track, and to find a tempo after all of them.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "midi/midi_asset_file.h"

namespace tavrel {
namespace {

constexpr std::size_t kTrackBytes = std::size_t{8} * 1024 * 1024;

/// Returns `value` as 4 big-endian bytes.
std::string bigEndian(std::uint32_t value) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) {
    bytes += static_cast<char>(value >> shift);
  }
  return bytes;
}

/// Returns note-ons and note-offs, most with running status, then a tempo and the end of the track.
std::string makeSong() {
  std::string track;
  track.reserve(kTrackBytes);
  for (char note = 0; track.size() < kTrackBytes; note = static_cast<char>((note + 1) & 0x7F)) {
    track += {'\x18', '\x90', note, '\x64', '\x60', note, '\0', '\x01', '\xB0', '\x07', note};
  }
  track += std::string("\x00\xFF\x51\x03\x07\xA1\x20\x00\xFF\x2F\x00", 7 + 4);
  const std::string header("MThd\0\0\0\6\0\0\0\1\0\x60MTrk", 14 + 4);
  return header + bigEndian(static_cast<std::uint32_t>(track.size())) + track;
}

/// The song as a file, deleted on destruction.
class SongFile {
 public:
  SongFile() : path_((std::filesystem::temp_directory_path() / "tavrel_bench.mid").string()) {
    const std::string song = makeSong();
    std::ofstream(path_, std::ios::binary)
        .write(song.data(), static_cast<std::streamsize>(song.size()));
  }
  ~SongFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  SongFile(const SongFile&) = delete;
  SongFile& operator=(const SongFile&) = delete;
  SongFile(SongFile&&) = delete;
  SongFile& operator=(SongFile&&) = delete;

  [[nodiscard]] const char* path() const { return path_.c_str(); }

 private:
  std::string path_;
};

void readEvents(benchmark::State& state) {
  const SongFile song;
  MidiAssetFile file(song.path(), 0);
  if (!file.load()) {
    state.SkipWithError("the song can't be loaded");
    return;
  }
  std::int64_t events = 0;
  for (auto _ : state) {
    file.rewind();
    for (HeldEvent ev; file.getNextEvent(ev); clearEvent(ev)) {
      ++events;
    }
  }
  state.counters["events"] =
      benchmark::Counter(static_cast<double>(events), benchmark::Counter::kIsRate);
}
BENCHMARK(readEvents)->Unit(benchmark::kMillisecond);

void firstTempo(benchmark::State& state) {
  const SongFile song;
  MidiAssetFile file(song.path(), 0);
  bool found = file.load();
  for (auto _ : state) {
    std::uint32_t tempo = 0;
    found = file.firstTempo(tempo) && found;
    benchmark::DoNotOptimize(tempo);
  }
  if (!found) {
    state.SkipWithError("no tempo found");
  }
}
BENCHMARK(firstTempo)->Unit(benchmark::kMillisecond);

/// Does what a run does with the file: construct, load, query.
void loadAndFirstTempo(benchmark::State& state) {
  const SongFile song;
  bool found = true;
  for (auto _ : state) {
    MidiAssetFile file(song.path(), 0);
    std::uint32_t tempo = 0;
    found = file.load() && file.firstTempo(tempo) && found;
    benchmark::DoNotOptimize(tempo);
  }
  if (!found) {
    state.SkipWithError("no tempo found");
  }
}
BENCHMARK(loadAndFirstTempo)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tavrel
