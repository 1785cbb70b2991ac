// The files of a build: what it reads, and what it must write.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kit/build/build_outputs.h"
#include "kit/frame/arguments.h"
#include "kit/frame/script_options.h"
#include "kit/pack/packed_script.h"
#include "platform/file_cache.h"

namespace tavrel::kit {

/// What a build reads, under the host's paths.
struct BuildInputs {
  std::string script;
  std::vector<std::string> assets;
  std::optional<std::string> declared{};  ///< the list of what may be read
};

/// Reads the script into the cache, and finds out which assets it names. Throws Failure if the
/// script can't be read.
BuildInputs readInputs(const RunPlan& plan, FileCache& cache);

/// What a build writes beside the bank and its header, under the host's paths.
struct BuildRecords {
  std::optional<std::string> depfile;
  std::optional<std::string> stamp;
};

BuildRecords buildRecords(const Arguments& arguments);

/// Returns what must be written, in the order in which it appears: the bank, the header and the
/// depfile, as far as they differ from what is there, and the stamp. Throws Failure if an output
/// would replace an input or another output, or if the depfile can't name its files. Borrows
/// `packed`.
std::vector<BuildOutput> changedOutputs(PackedScript& packed, const BuildInputs& inputs,
                                        const BuildRecords& records);

}  // namespace tavrel::kit
