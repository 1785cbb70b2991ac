#include "bench/sounds.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace tavrel::bench {

namespace {

constexpr double kSampleRate = 44100;

std::int16_t toSample(double value) {
  return static_cast<std::int16_t>(std::clamp(value, -32768.0, 32767.0));
}

double secondsAt(std::size_t index) { return static_cast<double>(index) / kSampleRate; }

double sine(double frequency, double seconds) {
  return std::sin(2 * std::numbers::pi * frequency * seconds);
}

}  // namespace

Samples music(std::size_t count) {
  Samples samples(count);
  std::mt19937 generator(1);
  std::normal_distribution<double> noise(0, 1500);
  for (std::size_t i = 0; i < count; ++i) {
    const double seconds = secondsAt(i);
    const double notes =
        9000 * sine(220, seconds) + 5000 * sine(447, seconds) + 3000 * sine(1931, seconds);
    samples[i] = toSample(std::exp(-3 * std::fmod(seconds, 0.7)) * (notes + noise(generator)));
  }
  return samples;
}

Samples hum(std::size_t count) {
  Samples samples(count);
  std::mt19937 generator(2);
  std::normal_distribution<double> hiss(0, 50);
  for (std::size_t i = 0; i < count; ++i) {
    samples[i] = toSample(20000 * sine(60, secondsAt(i)) + hiss(generator));
  }
  return samples;
}

Samples tone(std::size_t count) {
  Samples samples(count);
  for (std::size_t i = 0; i < count; ++i) {
    samples[i] = toSample(12000 * sine(441.7, secondsAt(i)));
  }
  return samples;
}

Samples whiteNoise(std::size_t count, unsigned seed) {
  Samples samples(count);
  std::mt19937 generator(seed);
  std::uniform_int_distribution<int> noise(-32768, 32767);
  std::generate(samples.begin(), samples.end(), [&] { return toSample(noise(generator)); });
  return samples;
}

}  // namespace tavrel::bench
