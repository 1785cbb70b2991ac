// Writes the inputs of the whole-run benchmarks, the same bytes each time: make_inputs folder
//
// | Files | Purpose |
// |---|---|
// | small.txt, small/*.wav | 2,000 WAV files of 40,000 to 50,000 bytes, each longer than the last |
// | compress_small.txt, joined.wav | the same, compressed, and their samples in one file |
// | opaque.txt, opaque/*.dat | 16 user assets, 1 GiB in all |
// | compress.txt, long.wav | 10 minutes of 44.1 kHz sound for the encoder |
// | blocks15000.txt, blocks30000.txt, tiny.dat | scripts with many blocks and little payload |
// | tempo.txt, tempo.mid | a tempo after 8 MB of other events |
// | empty.txt | a bank without assets |
// | sparse.tvb | a bank of 1 GiB with 1,000 waves, whose blobs take no room on the disk |
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "bench/sounds.h"

namespace {

using tavrel::bench::Samples;

constexpr int kSmallFiles = 2000;
constexpr int kOpaqueFiles = 16;
constexpr std::size_t kOpaqueSize = std::size_t{64} << 20U;
constexpr std::size_t kLongSamples = std::size_t{600} * 44100;
constexpr std::size_t kTrackSize = std::size_t{8} << 20U;

void writeFile(const std::string& name, const std::string& content) {
  std::ofstream file(name, std::ios::binary);
  file << content;
  if (!file.flush()) {
    std::perror(name.c_str());
    std::exit(1);
  }
}

std::string littleEndian(std::size_t value, int width) {
  std::string bytes;
  for (int i = 0; i < width; ++i) {
    bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  }
  return bytes;
}

std::string bigEndian(std::size_t value, int width) {
  const std::string bytes = littleEndian(value, width);
  return {bytes.rbegin(), bytes.rend()};
}

/// Returns a mono WAV file with 16-bit samples.
std::string wav(const Samples& samples, std::size_t sampleRate) {
  const std::size_t size = 2 * samples.size();
  return "RIFF" + littleEndian(4 + 8 + 16 + 8 + size, 4) + "WAVE" + "fmt " + littleEndian(16, 4) +
         littleEndian(1, 2) + littleEndian(1, 2) + littleEndian(sampleRate, 4) +
         littleEndian(2 * sampleRate, 4) + littleEndian(2, 2) + littleEndian(16, 2) + "data" +
         littleEndian(size, 4) + std::string(reinterpret_cast<const char*>(samples.data()), size);
}

/// Writes a script that names a bank and has these blocks.
void writeScript(const std::string& name, const std::string& blocks) {
  writeFile(name + ".txt", "BankFileName " + name + ".tvb\n" + blocks + "ScriptEnd\n");
}

/// Each file is a little longer than the last one, so that the memory of one is too small for the
/// next.
void makeSmallWaves() {
  std::filesystem::create_directory("small");
  std::string blocks;
  std::string compressedBlocks;
  Samples joined;
  for (int i = 0; i < kSmallFiles; ++i) {
    const std::string file = std::to_string(i) + ".wav";
    const std::size_t count = 19978 + static_cast<std::size_t>(i) * 5 / 2;
    const Samples samples = tavrel::bench::whiteNoise(count, static_cast<unsigned>(i));
    writeFile("small/" + file, wav(samples, 22050));
    joined.insert(joined.end(), samples.begin(), samples.end());
    const std::string block = "WaveFile small\\" + file + "\nSampleRate 22050\n";
    blocks += block + "AssetEnd\n";
    compressedBlocks += block + "Adpcm 1\nAssetEnd\n";
  }
  writeScript("small", blocks);
  writeScript("compress_small", compressedBlocks);
  writeFile("joined.wav", wav(joined, 22050));
}

void makeOpaqueAssets() {
  std::filesystem::create_directory("opaque");
  std::mt19937_64 random(1);
  std::string content;
  while (content.size() < kOpaqueSize) {
    content += littleEndian(random(), 8);
  }
  std::string blocks;
  for (int i = 0; i < kOpaqueFiles; ++i) {
    const std::string file = std::to_string(i) + ".dat";
    content[0] = static_cast<char>(i);
    writeFile("opaque/" + file, content);
    blocks += "UserAsset opaque\\" + file + "\nAssetEnd\n";
  }
  writeScript("opaque", blocks);
}

void makeLongSound() {
  writeFile("long.wav", wav(tavrel::bench::music(kLongSamples), 44100));
  writeScript("compress", "WaveFile long.wav\nSampleRate 44100\nAdpcm 1\nAssetEnd\n");
}

void makeManyBlocks() {
  writeFile("tiny.dat", "tiny");
  for (const int count : {15000, 30000}) {
    std::string blocks;
    for (int i = 0; i < count; ++i) {
      blocks += "UserAsset tiny.dat ; asset " + std::to_string(i) + "\n  Parameter0 " +
                std::to_string(i) + "\n  Parameter7 -1\nAssetEnd\n\n";
    }
    writeScript("blocks" + std::to_string(count), blocks);
  }
}

/// Returns notes with running status, and now and then a controller, a pitch bend or a text.
std::string trackEvents() {
  std::mt19937 random(2);
  const auto byte = [&random](unsigned limit) { return static_cast<char>(random() % limit); };
  std::string events;
  while (events.size() < kTrackSize) {
    events += std::string("\x81\x10", 2) + '\x90' + byte(128) + byte(128);
    for (int note = 0; note < 24; ++note) {
      events += std::string{byte(128), byte(128), byte(128)};
    }
    events += std::string{byte(128), '\xB0', 7, byte(128), 0, '\xE0', byte(128), byte(128)};
    events += std::string("\0\xFF\x01\5verse", 9);
  }
  return events;
}

void makeLateTempo() {
  const std::string track =
      trackEvents() + std::string("\0\xFF\x51\3\x07\xA1\x20\0\xFF\x2F\0", 7 + 4);
  writeFile("tempo.mid", "MThd" + bigEndian(6, 4) + bigEndian(0, 2) + bigEndian(1, 2) +
                             bigEndian(480, 2) + "MTrk" + bigEndian(track.size(), 4) + track);
  writeScript("tempo", "MidiFileType0 tempo.mid\nAssetEnd\n");
}

void makeSparseBank() {
  constexpr std::size_t kAssets = 1000;
  constexpr std::size_t kSize = std::size_t{1} << 30U;
  constexpr std::size_t kTableSize = 4 + kAssets * 44;
  constexpr std::size_t kBlobSize = (kSize - kTableSize) / kAssets / 4 * 4;
  std::string table = littleEndian(kAssets, 4);
  for (std::size_t id = 0; id < kAssets; ++id) {
    table += littleEndian(1, 4) + littleEndian(kTableSize + id * kBlobSize, 4) +
             littleEndian(kBlobSize, 4) + littleEndian(22050, 4) + littleEndian(0, 4) +
             littleEndian(16, 4) + std::string(std::size_t{5} * 4, '\0');
  }
  writeFile("sparse.tvb", table);
  std::filesystem::resize_file("sparse.tvb", kSize);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    std::fputs("Usage: make_inputs folder\n", stderr);
    return 1;
  }
  std::filesystem::create_directories(arguments[1]);
  std::filesystem::current_path(arguments[1]);
  makeSmallWaves();
  makeOpaqueAssets();
  makeLongSound();
  makeManyBlocks();
  makeLateTempo();
  writeScript("empty", "");
  makeSparseBank();
  return 0;
}
