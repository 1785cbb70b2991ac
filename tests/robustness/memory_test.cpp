#include <gtest/gtest.h>
#include <sys/resource.h>

#include "midi/midi_asset_file.h"
#include "tests/support/midi_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(Memory, DoesNotGrowWithWhatAnEventClaims) {
  // A system event of 4 GiB less one byte, in a file of 28 bytes.
  const std::string claim = Bytes().u8(0xF0).u8(0x8F).fill(3, 0xFF).u8(0x7F);
  const TemporaryDirectory directory;
  const std::string name = directory.write("c.mid", midi().track(events().raw(0, claim)));
  MidiAssetFile file(name.c_str(), 0);
  ASSERT_TRUE(file.load());
  rusage before{};
  rusage after{};
  std::uint32_t tempo = 0;
  getrusage(RUSAGE_SELF, &before);
  EXPECT_FALSE(file.firstTempo(tempo));
  getrusage(RUSAGE_SELF, &after);
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 1024) << "kilobytes";
}

}  // namespace tavrel::test
