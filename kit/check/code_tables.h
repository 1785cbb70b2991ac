// The two halves of the table of codes.
#pragma once

#include "kit/check/codes.h"

namespace tavrel::kit {

std::span<const Code> errorCodes();
std::span<const Code> warningCodes();

}  // namespace tavrel::kit
