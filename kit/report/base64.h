#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tavrel::kit {

/// Returns `size` bytes in base 64, with padding.
std::string base64(const std::uint8_t* bytes, std::size_t size);

}  // namespace tavrel::kit
