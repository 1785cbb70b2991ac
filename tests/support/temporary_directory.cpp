#include "tests/support/temporary_directory.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

namespace tavrel::test {

TemporaryDirectory::TemporaryDirectory() {
  std::random_device random;
  do {
    directory_ =
        std::filesystem::temp_directory_path() / ("tavrel_test_" + std::to_string(random()));
  } while (!std::filesystem::create_directory(directory_));
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(directory_, ignored);
}

std::string TemporaryDirectory::path(std::string_view name) const {
  return (directory_ / name).generic_string();
}

std::string TemporaryDirectory::write(std::string_view name, std::string_view content) const {
  std::string fullName = path(name);
  std::ofstream file(fullName, std::ios::binary);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
  EXPECT_TRUE(file.flush()) << "can't write " << fullName;
  return fullName;
}

std::string TemporaryDirectory::read(std::string_view name) const {
  std::ifstream file(path(name), std::ios::binary);
  EXPECT_TRUE(file) << "can't read " << path(name);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool TemporaryDirectory::has(std::string_view name) const {
  return std::filesystem::exists(path(name));
}

}  // namespace tavrel::test
