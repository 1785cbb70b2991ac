// Sounds for the benchmarks, the same samples each time.
#pragma once

#include <cstdint>
#include <vector>

namespace tavrel::bench {

using Samples = std::vector<std::int16_t>;

/// Three decaying notes and a little noise, repeated every 0.7 seconds, at 44.1 kHz.
Samples music(std::size_t count);

/// A hum with the hiss of a recording, at 44.1 kHz.
Samples hum(std::size_t count);

/// A pure tone at 44.1 kHz, so periodic that a processor predicts every branch.
Samples tone(std::size_t count);

Samples whiteNoise(std::size_t count, unsigned seed);

}  // namespace tavrel::bench
