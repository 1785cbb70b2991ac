// Files made of chunks behind a form header, RIFF or IFF. Sizes and pads are right unless a damage
// is asked for.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/bytes.h"

namespace tavrel::test {

constexpr std::uint32_t mono = 1;
constexpr std::uint32_t stereo = 2;

enum class ByteOrder { little, big };

/// `Self` is the derived builder, which each operation gives back for the next one.
template <typename Self, ByteOrder order>
class ChunkBuilder {
 public:
  ChunkBuilder(std::string_view formId, std::string_view formType)
      : formId_(formId), formType_(formType) {}

  Self& chunk(std::string_view id, std::string_view content) {
    chunks_.push_back(
        {std::string(id), std::string(content), static_cast<std::uint32_t>(content.size())});
    return self();
  }
  Self& form(std::string_view type) {
    formType_ = type;
    return self();
  }
  /// The size field of the form says `size`.
  Self& claimFormSize(std::uint32_t size) {
    claimsFormSize_ = true;
    formSize_ = size;
    return self();
  }
  /// The size field of every chunk called `id` says `size`.
  Self& claimSize(std::string_view id, std::uint32_t size) {
    for (Chunk& chunk : chunks_) {
      chunk.size = chunk.id == id ? size : chunk.size;
    }
    return self();
  }
  /// The pad byte behind the last chunk is missing.
  Self& withoutLastPad() {
    padsLast_ = false;
    return self();
  }

  [[nodiscard]] std::string str() const {
    Bytes content;
    content.text(formType_);
    for (const Chunk& chunk : chunks_) {
      number(content.text(chunk.id), chunk.size).text(chunk.content);
      if (chunk.content.size() % 2 != 0 && (padsLast_ || &chunk != &chunks_.back())) {
        content.u8(0);
      }
    }
    const auto size = static_cast<std::uint32_t>(content.size());
    Bytes file;
    number(file.text(formId_), claimsFormSize_ ? formSize_ : size).text(content);
    return file;
  }

 private:
  struct Chunk {
    std::string id;
    std::string content;
    std::uint32_t size;
  };

  static Bytes& number(Bytes& bytes, std::uint32_t value) {
    return order == ByteOrder::little ? bytes.le32(value) : bytes.be32(value);
  }
  Self& self() { return static_cast<Self&>(*this); }

  std::string formId_;
  std::string formType_;
  std::vector<Chunk> chunks_;
  std::uint32_t formSize_ = 0;
  bool claimsFormSize_ = false;
  bool padsLast_ = true;
};

}  // namespace tavrel::test
