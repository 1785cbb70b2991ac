// The outputs of a build: none is replaced before all of them are complete.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "kit/frame/output_file.h"

namespace tavrel::kit {

/// A file that a build writes.
struct BuildOutput {
  std::string path;  ///< the host's own
  /// Writes the content. Throws Failure if it can't be written.
  std::function<void(OutputFile& file)> write;
};

/// Returns an output with this content.
BuildOutput textOutput(std::string path, std::string text);

/// Returns true if a file has this content.
bool hasContent(const std::string& path, const std::string& text);

/// Writes all outputs under temporary names, and then lets them appear in their order, without
/// being interrupted by a signal. The target of a link is replaced, not the link. Throws Failure if
/// an output can't be written: nothing has changed then, unless the host refuses to rename a file
/// that is complete.
void writeOutputs(const std::vector<BuildOutput>& outputs);

}  // namespace tavrel::kit
