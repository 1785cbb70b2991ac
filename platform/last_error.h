// The error of a call to the host that has just failed.
#pragma once

#include <cerrno>
#include <system_error>

namespace tavrel {

/// Returns `errno`, which the next call may change.
inline std::error_code lastError() { return {errno, std::generic_category()}; }

}  // namespace tavrel
