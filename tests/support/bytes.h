// Builds binary inputs and expected outputs from numbers of a stated width and byte order, text and
// fill bytes.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/byte_block.h"

namespace tavrel::test {

/// A growing string of bytes. Each operation appends and returns the object, so that calls chain.
class Bytes : public std::string {
 public:
  Bytes& u8(std::size_t value) { return fill(1, value); }
  Bytes& be16(std::size_t value) { return u8(value >> 8).u8(value); }
  Bytes& be32(std::size_t value) { return be16(value >> 16).be16(value); }
  Bytes& le16(std::size_t value) { return u8(value).u8(value >> 8); }
  Bytes& le32(std::size_t value) { return le16(value).le16(value >> 16); }
  Bytes& text(std::string_view value) { return static_cast<Bytes&>(append(value)); }
  Bytes& fill(std::size_t count, std::size_t value = 0) {
    return static_cast<Bytes&>(append(count, static_cast<char>(value)));
  }

  [[nodiscard]] std::string str() const { return *this; }
};

/// Returns a copy that ends where `bytes` do, so that AddressSanitizer sees a read after them.
inline ByteBlock blockOf(std::string_view bytes) {
  ByteBlock block(new std::uint8_t[bytes.size()]);
  std::copy(bytes.begin(), bytes.end(), block.get());
  return block;
}

}  // namespace tavrel::test
