// A command of tavkit that is parsed once and run for every input.
#pragma once

#include <string>
#include <vector>

#include "kit/frame/arguments.h"
#include "kit/frame/command.h"
#include "kit/frame/output.h"

namespace tavrel::fuzz {

class KitCommand {
 public:
  /// `words` are a good command line without the program's name.
  explicit KitCommand(const std::vector<std::string>& words);

  /// Runs the command as tavkit does, and requires that a failure has a message and no results.
  kit::ExitCode run(kit::Output& output) const;

 private:
  const kit::Command* command_;
  kit::Arguments arguments_;
};

}  // namespace tavrel::fuzz
