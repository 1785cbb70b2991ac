// Sounds and sequences, cut short and damaged byte by byte. A block that then reads or writes where
// it mustn't ends the test where the sanitizers are on.
#include <gtest/gtest.h>

#include <algorithm>

#include "compiler/bank_script.h"
#include "tests/support/aiff_builder.h"
#include "tests/support/small_build.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/wav_builder.h"

namespace tavrel::test {
namespace {

/// How many bytes the block of the asset stores; none if it fails.
std::size_t bytesStored(const TemporaryDirectory& folder, const std::string& name,
                        const std::string& content) {
  std::string text = folder.write(name, content) + " Loop 1 AssetEnd ";
  std::replace(text.begin(), text.end(), '/', '\\');
  auto memory = std::make_unique<std::uint8_t[]>(text.size());
  std::copy(text.begin(), text.end(), memory.get());
  BankScript script("");
  script.useMemory(memory.release(), text.size());
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const bool stored =
      name == "m.mid" ? script.parseMidiFileType0(script) : script.parseWaveFile(script);
  testing::internal::GetCapturedStdout();
  testing::internal::GetCapturedStderr();
  script.freeData();
  EXPECT_EQ(stored, script.assets.size() == 1);
  return stored ? script.assets[0]->paddedSize : 0;
}

TEST(DamagedAssets, StoreNoMoreThanTheirFileHolds) {
  const TemporaryDirectory folder;
  for (const SmallFile& file : {SmallFile{"w.wav", smallWav()}, SmallFile{"f.aif", smallAiff()},
                                SmallFile{"m.mid", smallMidi()}}) {
    EXPECT_GT(bytesStored(folder, file.name, file.content), 0U) << file.name;
    for (std::size_t place = 0; place < file.content.size(); ++place) {
      const std::string cut = file.content.substr(0, place);
      EXPECT_LE(bytesStored(folder, file.name, cut), place + 3) << file.name << place;
      for (const int damage : {0x01, 0x80, 0xFF}) {
        std::string damaged = file.content;
        damaged[place] = static_cast<char>(damaged[place] ^ damage);
        EXPECT_LE(bytesStored(folder, file.name, damaged), damaged.size() + 3);
      }
    }
  }
}

TEST(DamagedAssets, AMillionEmptyChunksAreWalkedPast) {
  const TemporaryDirectory folder;
  Bytes junk;
  for (int i = 0; i < 1000000; ++i) {
    junk.text("junk").le32(0);
  }
  std::string wave = wav().fmt(mono, 8, 8000).data("ab").claimFormSize(0xFFFFFFFF);
  std::string sound = aiff().comm(mono, 2, 8).ssnd("ab").claimFormSize(0xFFFFFFFF);
  EXPECT_EQ(bytesStored(folder, "w.wav", wave.insert(12, junk)), 4U);
  EXPECT_EQ(bytesStored(folder, "f.aif", sound.insert(12, junk)), 4U);
}

}  // namespace
}  // namespace tavrel::test
