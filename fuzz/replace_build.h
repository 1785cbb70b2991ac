// The files of a build in the work directory, made of one input.
#pragma once

#include <string>
#include <string_view>

namespace tavrel::fuzz {

/// Replaces all files of the work directory by those of the small build, and four of them by parts
/// of the input. Returns the script, in which names stay in the directory, see `confined`.
///
/// | Content | Goes to |
/// |---|---|
/// | script and a line "----" | "s.txt" |
/// | WAV file and a line "----" | "w.wav" |
/// | AIFF file and a line "----" | "f.aif" |
/// | MIDI file | "m.mid" |
std::string replaceBuild(std::string_view input);

}  // namespace tavrel::fuzz
