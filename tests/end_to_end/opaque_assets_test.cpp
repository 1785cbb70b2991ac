#include <gtest/gtest.h>

#include "tests/support/expected_run.h"

namespace tavrel::test {
namespace {

TEST(OpaqueAssets, EachKindIsCopiedWholeWithTheNumbersOfItsBlock) {
  const struct {
    std::string block, label;
    std::uint32_t type;
    Pad pad;
    std::vector<std::int32_t> parameters;
    std::string payload;
  } rows[] = {
      {"MidiToneBank % BankType Drum BANKTYPE Melodic",
       "Tone Bank",
       3,
       Pad::none,
       {1},
       "10 bytes.."},
      {"MidiToneBank % BankType Melodic BankType Drum", "Tone Bank", 3, Pad::none, {0}, "1"},
      {"MidiToneBank %", "Tone Bank", 3, Pad::none, {0}, ""},
      {"FxOutputBank %", "DSP Program", 5, Pad::none, {}, "three"},
      {"FxProgramBank %", "DSP Program", 4, Pad::none, {}, std::string("\r\n\0\x1A\xFF;", 6)},
      {"FxOutputBank %", "DSP Program", 5, Pad::none, {}, ""},
      {"UserAsset %", "Unknown", 6, Pad::to4, {}, ""},
      {"UserAsset % Parameter7 8 Parameter6 7 Parameter5 -6 Parameter4 +5 Parameter3 4x "
       "Parameter2 3 Parameter1 2 Parameter0 1",
       "Unknown",
       6,
       Pad::to4,
       {1, 2, 3, 4, 5, -6, 7, 8},
       "ten bytes."},
      {"UserAsset % parameter0 4294967295 Parameter1 0x10 Parameter2 loud Parameter3 -2147483648 "
       "Parameter4 1 Parameter4 2147483647",
       "Unknown",
       6,
       Pad::to4,
       {-1, 0, 0, -2147483647 - 1, 2147483647},
       "four"},
  };
  const TemporaryDirectory folder;
  ExpectedRun expected;
  std::string script = "BankFileName sfx.tvb\n";
  for (const auto& row : rows) {
    const auto id = static_cast<int>(expected.defines.size());
    const std::string file = std::to_string(id);
    folder.write(file, row.payload);
    script += std::string(row.block).replace(row.block.find('%'), 1, file) + " AssetEnd\n";
    expected.reading += row.type == 3   ? "Reading MTB File: "
                        : row.type == 6 ? "Reading Unknown File: "
                                        : "Reading DSP File: ";
    expected.reading += file + "\n";
    expected.writing += "Writing " + row.label + " Data: " + file + "_\n";
    expected.bank.asset(row.type, row.payload, row.pad, row.parameters);
    expected.defines.push_back({file + "_", id});
  }
  folder.write("a.txt", script);
  expectRun(folder, expected);
}

}  // namespace
}  // namespace tavrel::test
