// Builds the bank that a run must write, from the table of the format:
//   ExpectedBank().asset(6, "ten bytes.", Pad::to4, {1, -2})
// Offsets, sizes and padding are worked out here, and nothing of the tool's own code is used.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::test {

/// Whether a blob is followed by zero bytes up to a multiple of 4 of its own length.
enum class Pad { none, to4 };

class ExpectedBank {
 public:
  /// One more record and blob; parameter words that aren't named are 0.
  ExpectedBank& asset(std::uint32_t type, std::string_view payload, Pad pad,
                      const std::vector<std::int32_t>& parameters = {});

  /// The bytes of the whole file.
  [[nodiscard]] std::string bytes() const;

  /// The bytes that the blobs take, with their padding.
  [[nodiscard]] std::size_t dataSize() const;

  /// All bytes that aren't blob.
  [[nodiscard]] std::size_t headerSize() const { return bytes().size() - dataSize(); }

 private:
  struct Asset {
    std::uint32_t type;
    std::string payload;
    std::size_t padding;
    std::vector<std::int32_t> parameters;
  };
  std::vector<Asset> assets_;
};

}  // namespace tavrel::test
