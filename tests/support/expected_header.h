// Builds the header that a run must write, line by line:
//   expectedHeader("sfx", "SFX", 3000, 104, {{"BOOM_WAV", 0}}, "3/4/1999 5:06 pm")
// and tells the time as the header does, without the tool's own clock.
#pragma once

#include <string>
#include <vector>

namespace tavrel::test {

/// One asset's line, its name without the prefix.
struct ExpectedDefine {
  std::string name;
  int id;
};

std::string expectedHeader(const std::string& baseName, const std::string& prefix,
                           std::size_t dataSize, std::size_t headerSize,
                           const std::vector<ExpectedDefine>& assets, const std::string& stamp);

/// The local date and time of now, as in the header's `Rev:` line.
std::string currentStamp();

/// `text` with its letters a to z as capitals.
std::string upperCased(std::string text);

}  // namespace tavrel::test
