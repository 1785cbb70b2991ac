#include "kit/build/build_outputs.h"

#include <memory>

#include "kit/build/comparing_buffer.h"
#include "platform/termination.h"

namespace tavrel::kit {

BuildOutput textOutput(std::string path, std::string text) {
  return {.path = std::move(path), .write = [text = std::move(text)](OutputFile& file) {
            file.write(text.data(), text.size());
          }};
}

bool hasContent(const std::string& path, const std::string& text) {
  ComparingBuffer comparison(path);
  comparison.sputn(text.data(), static_cast<std::streamsize>(text.size()));
  return comparison.isEqual();
}

void writeOutputs(const std::vector<BuildOutput>& outputs) {
  // All files are made first: one that is read-only stops the build before anything is written.
  std::vector<std::unique_ptr<OutputFile>> files;
  files.reserve(outputs.size());
  for (const BuildOutput& output : outputs) {
    files.push_back(std::make_unique<OutputFile>(output.path, Existing::followLink));
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    outputs[i].write(*files[i]);
    files[i]->flush();
  }
  const HeldSignals held;
  for (const auto& file : files) {
    file->replace();
  }
}

}  // namespace tavrel::kit
