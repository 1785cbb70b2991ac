// Files made of chunks behind a form header, RIFF or IFF. Sizes and pads are right unless a damage
// is asked for, which belongs behind the last chunk.
#pragma once

#include <bit>

#include "tests/support/bytes.h"

namespace tavrel::test {

constexpr std::uint32_t mono = 1;
constexpr std::uint32_t stereo = 2;

/// `Self` is the derived builder, which each operation gives back for the next one.
template <typename Self, std::endian order>
class ChunkBuilder {
 public:
  ChunkBuilder(std::string_view formId, std::string_view formType)
      : file_(Bytes().text(formId).text(number(4)).text(formType)) {}

  Self& chunk(std::string_view id, std::string_view content) {
    const std::string size = number(static_cast<std::uint32_t>(content.size()));
    file_ += Bytes().text(id).text(size).text(content).fill(content.size() % 2).str();
    return claimFormSize(static_cast<std::uint32_t>(file_.size() - 8));
  }
  Self& form(std::string_view type) { return put(8, type); }
  Self& claimFormSize(std::uint32_t size) { return put(4, number(size)); }
  /// The size field of the first chunk called `id` says `size`.
  Self& claimSize(std::string_view id, std::uint32_t size) {
    return put(file_.find(id) + 4, number(size));
  }

  [[nodiscard]] std::string str() const { return file_; }
  operator const std::string&() const { return file_; }  // NOLINT(google-explicit-constructor)

 private:
  static std::string number(std::uint32_t value) {
    return order == std::endian::little ? Bytes().le32(value) : Bytes().be32(value);
  }
  Self& put(std::size_t position, std::string_view bytes) {
    file_.replace(position, bytes.size(), bytes);
    return static_cast<Self&>(*this);
  }

  std::string file_;
};

}  // namespace tavrel::test
