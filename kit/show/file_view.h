// What is shown of one file, and the block of a script that would read it.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "kit/show/shown_file.h"

namespace tavrel::kit {

struct FileView {
  std::string text{};     ///< whole lines that say what the file holds
  std::string keyword{};  ///< of the statement
  /// The options that the file asks for, each with its value.
  std::vector<std::pair<std::string, std::string>> options{};
  bool loops = false;      ///< the options make the sound loop
  std::uint16_t bits = 0;  ///< of a sound's samples
};

/// Return what is in a file of these kinds, however damaged. Throw std::bad_alloc if memory runs
/// out.
FileView waveView(ShownFile& file);
FileView aiffView(const ShownFile& file);
FileView sequenceView(const ShownFile& file);

/// What a bank would make of a file.
struct BankView {
  std::string text{};   ///< a line, and one for each problem that a check of the block finds
  bool isWhole = true;  ///< the check finds no error
};

BankView bankView(const ShownFile& file, const FileView& view);

}  // namespace tavrel::kit
