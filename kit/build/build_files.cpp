#include "kit/build/build_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>

#include "kit/build/absolute_paths.h"
#include "kit/build/comparing_buffer.h"
#include "kit/build/header_comparison.h"
#include "kit/check/opened_names.h"
#include "kit/check/run_file.h"
#include "kit/deps/depfile.h"
#include "kit/frame/failure.h"
#include "kit/frame/scoped_file_cache.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// Returns the depfile: its names are absolute, since a build reads it from another folder.
std::string depfileOf(const BuildInputs& inputs, const std::string& target) {
  AbsolutePaths paths;
  std::vector<std::string> assets;
  for (const std::string& asset : inputs.assets) {
    assets.push_back(paths.of(asset));
  }
  return depfileText(paths.of(target), paths.of(inputs.script), assets);
}

/// Throws Failure if one of the outputs is an input or another output.
void requireDifferent(const std::vector<std::string>& outputs, const BuildInputs& inputs) {
  std::vector<RunFile> others{runFile(inputs.script)};
  std::transform(inputs.assets.begin(), inputs.assets.end(), std::back_inserter(others), runFile);
  if (inputs.declared) {
    others.push_back(runFile(*inputs.declared));
  }
  for (const std::string& output : outputs) {
    RunFile file = runFile(output);
    const auto other = std::find_if(others.begin(), others.end(),
                                    [&file](const RunFile& one) { return isSame(one, file); });
    if (other != others.end()) {
      throw Failure(fmt::format("two files of the build are one: {} and {}", output, other->path));
    }
    others.push_back(std::move(file));
  }
}

BuildOutput bankOutput(PackedScript& packed, const std::string& path) {
  return {.path = path, .write = [&packed, path](OutputFile& file) {
            std::filebuf target;
            target.open(file.temporaryPath(), std::ios::out | std::ios::binary);
            if (!packed.writeBank(target) || target.close() == nullptr) {
              throw Failure(fmt::format("can't write {}", path));
            }
          }};
}

}  // namespace

BuildInputs readInputs(const RunPlan& plan, FileCache& cache) {
  BuildInputs inputs{.script = hostPath(plan.scriptPath.c_str()), .assets = {}};
  readIntoCache(inputs.script, cache);
  inputs.assets = openedNames(modelOf(plan.scriptPath));
  return inputs;
}

BuildRecords buildRecords(const Arguments& arguments) {
  const auto hostPathOf = [&arguments](const char* option) {
    const auto path = arguments.value(option);
    return path ? std::optional(hostPath(path->c_str())) : std::nullopt;
  };
  return {.depfile = hostPathOf("--depfile"), .stamp = hostPathOf("--stamp")};
}

std::vector<BuildOutput> changedOutputs(PackedScript& packed, const BuildInputs& inputs,
                                        const BuildRecords& records) {
  const std::string bank = hostPath(packed.bankPath().c_str());
  const std::string header = hostPath(packed.headerPath().c_str());
  std::vector<std::string> paths{bank, header};
  for (const auto& record : {records.depfile, records.stamp}) {
    if (record) {
      paths.push_back(*record);
    }
  }
  requireDifferent(paths, inputs);

  std::vector<BuildOutput> outputs;
  ComparingBuffer comparison(bank);
  packed.writeBank(comparison);
  if (!comparison.isEqual()) {
    outputs.push_back(bankOutput(packed, bank));
  }
  if (!isSameHeader(header, packed.headerText())) {
    outputs.push_back(textOutput(header, packed.headerText()));
  }
  if (records.depfile) {
    const std::string text = depfileOf(inputs, records.stamp.value_or(bank));
    if (!hasContent(*records.depfile, text)) {
      outputs.push_back(textOutput(*records.depfile, text));
    }
  }
  if (records.stamp) {
    outputs.push_back(textOutput(*records.stamp, ""));
  }
  return outputs;
}

}  // namespace tavrel::kit
