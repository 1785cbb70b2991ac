#include <gtest/gtest.h>

#include <array>
#include <random>

#include "samples/adpcm_batch.h"
#include "samples/adpcm_encoder.h"
#include "tests/support/bytes.h"
#include "tests/support/plain_adpcm.h"

extern "C" void decodeAdpcm(const std::uint8_t* stream, std::size_t size, std::int16_t* samples);

namespace tavrel::test {

using Samples = std::vector<std::int16_t>;

/// Random samples: silent, soft, loud, or beyond the range and clipped.
Samples randomSamples(std::mt19937& random, std::size_t count) {
  const int loudness = std::array{0, 50, 5000, 60000}[random() % 4];
  Samples samples(count);
  for (std::int16_t& sample : samples) {
    const int value = std::uniform_int_distribution(-loudness, loudness)(random);
    sample = static_cast<std::int16_t>(std::clamp(value, -32768, 32767));
  }
  return samples;
}

/// A sound that a batch encodes, and the codes of the plain form, with bytes of 128 up to a
/// multiple of four.
struct Sound {
  explicit Sound(const Samples& sound) : samples(sound) {
    expected = encodePlainly({sound.begin(), sound.end() - sound.size() % 2}).codes;
    expected.resize((expected.size() + 3) / 4 * 4, 128);
    stream.resize(expected.size());
  }
  void addTo(AdpcmBatch& batch) {
    Bytes bytes;
    for (const std::int16_t sample : samples) {
      bytes.le16(static_cast<std::size_t>(sample));
    }
    const auto size = static_cast<std::uint32_t>(2 * samples.size());
    batch.add(blockOf(bytes), size, stream.data());
  }
  Samples samples;
  std::vector<std::uint8_t> expected, stream;
};

TEST(AdpcmBatch, AnyNumberOfSoundsHasTheStreamsOfThePlainForm) {
  std::mt19937 random(1);
  AdpcmBatch batch;
  for (std::size_t count = 0; count <= 40; ++count) {
    std::vector<Sound> sounds;
    for (std::size_t i = 0; i < count; ++i) {
      sounds.emplace_back(randomSamples(random, random() % (i % 5 == 0 ? 12 : 3000)));
      sounds.back().addTo(batch);
    }
    batch.finish();
    for (const Sound& sound : sounds) {
      ASSERT_TRUE(sound.stream == sound.expected) << "one of " << count;
    }
  }
}

TEST(AdpcmBatch, ASoundWaitsForFifteenOthersUnlessItHasFourMebibytes) {
  constexpr std::size_t kLong = (std::size_t{4} << 20U) / 2;
  std::vector<Sound> sounds{Sound(Samples(kLong, 9)), Sound(Samples(kLong - 1, 9))};
  sounds.resize(16, Sound(Samples(8, 9)));
  AdpcmBatch batch;
  for (Sound& sound : sounds) {
    sound.addTo(batch);
    EXPECT_FALSE(sounds[1].stream == sounds[1].expected);
    EXPECT_FALSE(sounds[2].stream == sounds[2].expected);
  }
  EXPECT_TRUE(sounds[0].stream == sounds[0].expected) << "at once";
  Sound(Samples(8, 9)).addTo(batch);
  EXPECT_TRUE(sounds[2].stream == sounds[2].expected) << "with the sixteenth that waits";
}

/// The stream that the first bytes of `samples` are encoded to, and the state after it.
std::string encoded(const Samples& samples, std::uint32_t byteLength) {
  AdpcmEncoder encoder;
  EXPECT_EQ(encoder.outputSize, 0);
  EXPECT_TRUE(encoder.encode(samples.data(), byteLength));
  return std::string(encoder.output.get(), encoder.output.get() + encoder.outputSize) + ' ' +
         std::to_string(encoder.predictor) + ' ' + std::to_string(encoder.step);
}

TEST(AdpcmEncoder, EncodesWholePairsOfSamples) {
  const Samples samples = {1000, 900, -500, 0, 32767, 32767, -32768, -32768};
  EXPECT_EQ(encoded(samples, 3), " 0 127");
  EXPECT_EQ(encoded(samples, 11), "\x77\x1F\x80\x80 97 1570");
  EXPECT_EQ(encoded(samples, 16), "\x77\x1F\x77\xCF -31196 24576");
  const std::uint8_t stream[] = {0x77, 0x1F, 0x77, 0xCF};
  Samples decoded(8);
  decodeAdpcm(stream, 4, decoded.data());
  EXPECT_EQ(decoded[7], -31196) << "by the documented decoder";
  EXPECT_EQ(AdpcmEncoder().stepFactors[5], 1.59765625);
}

}  // namespace tavrel::test
