#include "platform/transfer.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace tavrel::test {

TEST(Transfer, BytesOfAnyNumberKeepTheirOrder) {
  constexpr std::size_t kMebibyte = std::size_t{1} << 20U;
  for (const std::size_t size : {std::size_t{0}, 4 * kMebibyte, 12 * kMebibyte + 1}) {
    SCOPED_TRACE(size);
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) {
      bytes[i] = static_cast<char>(i / 251);  // a prime, so that all pieces differ
    }
    std::stringstream stream;
    writeBytes(stream, bytes.data(), size);
    std::string copy(size + 1, 'x');
    EXPECT_EQ(readBytes(stream, copy.data(), size), size);
    EXPECT_TRUE(copy == bytes + 'x');
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(readBytes(stream, copy.data(), 1), 0) << "at the end";
    EXPECT_TRUE(stream.fail());
  }
}

}  // namespace tavrel::test
