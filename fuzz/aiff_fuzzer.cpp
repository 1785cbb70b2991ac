// Fuzzes the AIFF reader with one hostile file.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "fuzz/hostile_file.h"
#include "fuzz/require.h"
#include "samples/aiff_file.h"
#include "samples/sound_convert.h"

namespace tavrel::fuzz {

namespace {

void checkRefusal(AiffFile& aiff) {
  std::uint32_t size = 1;
  std::uint32_t mode = 1;
  require(!aiff.getDataSize(size) && size == 0);
  require(!aiff.getLoop(1, mode, size, size) && mode == 0);
}

/// Returns the samples as the file has them, undoing the reader's conversion.
std::string storedSamples(AiffFile& aiff, std::uint32_t size) {
  std::uint16_t bits = 0;
  require(aiff.getBitsPerSample(bits));
  std::string bytes(aiff.getSampleData(), aiff.getSampleData() + size);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bits == 8) {
      bytes[i] = static_cast<char>(SoundConvert::flipSign(static_cast<std::uint8_t>(bytes[i])));
    } else if (i % 2 == 1) {
      std::swap(bytes[i - 1], bytes[i]);
    }
  }
  return bytes;
}

void checkSamples(AiffFile& aiff, std::string_view file) {
  std::uint32_t size = 0;
  require(aiff.getDataSize(size) && size <= file.size());
  require(file.find(storedSamples(aiff, size)) != std::string_view::npos);
  std::uint32_t mode = 0;
  std::uint32_t start = 0;
  std::uint32_t end = 0;
  for (std::uint8_t loop = 0; loop < 4; ++loop) {
    aiff.getLoop(loop, mode, start, end);
  }
}

}  // namespace

}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tavrel;
  const fuzz::HostileFile input(bytes, size);
  AiffFile aiff(input.path());
  aiff.verbose = size % 2 == 0;
  aiff.dump = aiff.verbose;
  if (aiff.load()) {
    fuzz::checkSamples(aiff, {reinterpret_cast<const char*>(bytes), size});
  } else {
    fuzz::checkRefusal(aiff);
  }
  return 0;
}
