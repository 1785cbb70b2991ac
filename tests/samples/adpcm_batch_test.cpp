#include "samples/adpcm_batch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "tests/support/plain_adpcm.h"

namespace tavrel::test {

using Samples = std::vector<std::int16_t>;

/// Random samples: silent, soft, loud, or beyond the range and clipped.
Samples randomSamples(std::mt19937& random, std::size_t count) {
  const int loudness = std::array{0, 50, 5000, 60000}[random() % 4];
  Samples samples(count);
  std::generate(samples.begin(), samples.end(), [&] {
    const int value = std::uniform_int_distribution(-loudness, loudness)(random);
    return static_cast<std::int16_t>(std::clamp(value, -32768, 32767));
  });
  return samples;
}

/// The codes of the plain form, with bytes of 128 up to a multiple of four.
std::vector<std::uint8_t> plainStream(Samples samples) {
  samples.resize(samples.size() / 2 * 2);
  std::vector<std::uint8_t> stream = encodePlainly(samples).codes;
  stream.resize((stream.size() + 3) / 4 * 4, 128);
  return stream;
}

/// Adds the samples as little-endian words after `offset` other bytes; block and stream end exactly
/// where they must, so that AddressSanitizer sees any access outside them.
void add(AdpcmBatch& batch, const Samples& samples, std::size_t offset,
         std::vector<std::uint8_t>& stream) {
  ByteBlock block(new std::uint8_t[offset + 2 * samples.size()]);
  std::uint8_t* next = block.get() + offset;
  for (const std::int16_t sample : samples) {
    *next++ = static_cast<std::uint8_t>(sample & 255);
    *next++ = static_cast<std::uint8_t>(sample >> 8 & 255);
  }
  batch.add(std::move(block), offset, static_cast<std::uint32_t>(2 * samples.size()),
            stream.data());
}

TEST(AdpcmBatch, AnyNumberOfSoundsHasTheStreamsOfThePlainForm) {
  std::mt19937 random(1);
  AdpcmBatch batch;
  for (std::size_t count = 0; count <= 40; ++count) {
    std::vector<std::vector<std::uint8_t>> expected;
    std::vector<std::vector<std::uint8_t>> streams;
    for (std::size_t i = 0; i < count; ++i) {
      const Samples samples = randomSamples(random, random() % (i % 5 == 0 ? 12 : 3000));
      expected.push_back(plainStream(samples));
      add(batch, samples, random() % 4, streams.emplace_back(expected.back().size()));
    }
    batch.finish();
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_TRUE(streams[i] == expected[i]) << "sound " << i << " of " << count;
    }
  }
}

TEST(AdpcmBatch, SoundOfFourMebibytesDoesNotWait) {
  constexpr std::size_t kCount = (std::size_t{4} << 20U) / 2;
  std::mt19937 random(2);
  for (const std::size_t count : {kCount - 1, kCount}) {
    const Samples samples = randomSamples(random, count);
    const std::vector<std::uint8_t> expected = plainStream(samples);
    std::vector<std::uint8_t> stream(expected.size());
    AdpcmBatch batch;
    add(batch, samples, 1, stream);
    EXPECT_EQ(stream == expected, count == kCount) << count;
  }
}

}  // namespace tavrel::test
