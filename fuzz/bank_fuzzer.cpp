// Fuzzes tavrel/bank.h with a bank in a block of its exact size at an odd address: either the bank
// is refused, or every asset is inside it. With the table alone the result is the same.
#include <tavrel/bank.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "fuzz/require.h"

namespace tavrel::fuzz {

namespace {

/// The bytes at an odd address, up to the end of their block.
class OddBlock {
 public:
  OddBlock(const std::uint8_t* bytes, std::size_t size) : block_(new std::uint8_t[size + 1]) {
    std::copy_n(bytes, size, block_.get() + 1);
  }

  [[nodiscard]] const std::uint8_t* bytes() const { return block_.get() + 1; }

 private:
  std::unique_ptr<std::uint8_t[]> block_;
};

/// Reads `count` samples in one piece and again in pieces of `step`.
void checkSamples(const tavrel_wave& wave, std::uint32_t step) {
  std::vector<std::int16_t> whole(wave.sample_count);
  std::vector<std::int16_t> pieces(wave.sample_count);
  tavrel_adpcm state = {wave.sample_rate, wave.random_pitch_amount};  // any numbers
  tavrel_adpcm same = state;
  const std::uint32_t count = tavrel_wave_read(&wave, &state, 0, whole.data(), UINT32_MAX);
  require(count == wave.sample_count);
  std::uint32_t position = 0;
  while (const std::uint32_t read =
             tavrel_wave_read(&wave, &same, position, pieces.data() + position, step)) {
    position += read;
  }
  require(position == count && pieces == whole);
  require(same.predictor == state.predictor && same.step == state.step);
}

void checkAsset(const tavrel_bank& bank, const tavrel_bank& table, std::uint32_t id) {
  tavrel_asset asset;
  tavrel_asset known;
  tavrel_wave wave;
  require(tavrel_bank_asset(&bank, id, &asset) == 1);
  require(asset.offset <= bank.size && asset.size <= bank.size - asset.offset);
  require(asset.bytes == bank.bytes + asset.offset);
  require(tavrel_bank_asset(&table, id, &known) == 1);
  require(known.bytes == nullptr || asset.size == 0);
  require(known.offset == asset.offset && known.size == asset.size && known.type == asset.type);
  require(std::memcmp(known.parameters, asset.parameters, sizeof known.parameters) == 0);
  if (tavrel_asset_wave(&asset, &wave) != 0) {
    checkSamples(wave, 1 + id % 7);
  }
}

void checkBank(const std::uint8_t* bytes, std::size_t size) {
  tavrel_bank bank;
  tavrel_bank table;
  const tavrel_status status = tavrel_bank_open(&bank, bytes, size);
  require(status == TAVREL_OK || (bank.bytes == nullptr && bank.count == 0));
  const std::size_t tableSize = size < 4 ? 0 : tavrel_bank_table_size(bytes);
  const std::size_t held = std::min(tableSize == 0 ? 4 : tableSize, size);
  const OddBlock alone(bytes, held);
  require(tavrel_bank_open_table(&table, alone.bytes(), held, size) == status);
  for (std::uint32_t id = 0; id < bank.count; ++id) {
    checkAsset(bank, table, id);
  }
}

}  // namespace

}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const tavrel::fuzz::OddBlock block(bytes, size);
  tavrel::fuzz::checkBank(block.bytes(), size);
  return 0;
}
