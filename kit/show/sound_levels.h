// How loud a sound is, and how it is printed, whatever its file.
#pragma once

#include <string>
#include <vector>

#include "kit/check/sound_check.h"

namespace tavrel::kit {

/// Levels of one channel, on a scale where the lowest sample is -1.
struct ChannelLevels {
  double peak = 0;    ///< the largest magnitude
  double rms = 0;     ///< the root of the mean of the squares, the offset included
  double offset = 0;  ///< the mean
};

/// Returns the levels of each channel that has samples. Returns nothing for samples whose width
/// isn't 8, 16, 24 or 32 bits.
std::vector<ChannelLevels> levelsOf(const LoadedSound& sound);

/// Returns a table of the levels, or nothing if there are none.
std::string levelsText(const LoadedSound& sound);

/// Returns a line with the form of a sound of `frames` frames, whose samples are of the kind
/// `encoding`.
std::string formatText(const std::string& encoding, const LoadedSound& sound, std::uint64_t frames);

}  // namespace tavrel::kit
