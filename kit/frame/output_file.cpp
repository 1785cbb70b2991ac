#include "kit/frame/output_file.h"

#include <fmt/format.h>

#include "kit/frame/failure.h"

namespace tavrel::kit {

OutputFile::OutputFile(const std::string& path, Existing existing) : path_(path) {
  check(file_.createNew(path, existing));
}

void OutputFile::write(const void* bytes, std::uint64_t count) { check(file_.write(bytes, count)); }

void OutputFile::flush() { check(file_.flushToDisk()); }

void OutputFile::replace() { check(file_.replaceFile()); }

void OutputFile::check(const std::error_code& error) const {
  if (error) {
    throw Failure(fmt::format("can't write {}: {}", path_, error.message()));
  }
}

void writeFile(const std::string& path, std::string_view content, Existing existing) {
  OutputFile file(path, existing);
  file.write(content.data(), content.size());
  file.finish();
}

}  // namespace tavrel::kit
