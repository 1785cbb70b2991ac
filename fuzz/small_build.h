// A small valid build: a script with one asset of each kind, and the files that it names.
#pragma once

#include <string>
#include <vector>

namespace tavrel::fuzz {

struct SmallFile {
  std::string name;
  std::string content;
};

/// 16-bit samples: "w.wav" in the script, which compresses it.
std::string smallWav();

/// Samples with a sustain loop between two markers: "f.aif".
std::string smallAiff();

/// A few notes under a tempo: "m.mid".
std::string smallMidi();

/// The script "s.txt", which makes the bank "b.tvb" and the header "b.h".
std::string smallScript();

/// A bank with a wave of each width that a game decodes, one that it doesn't, a tone bank, and an
/// empty asset at the end.
std::string smallBank();

/// All files of the build, the script included.
std::vector<SmallFile> smallBuild();

}  // namespace tavrel::fuzz
