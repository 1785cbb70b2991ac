// Names of the 128 MIDI controllers, by number.
#pragma once

#include <array>

namespace tavrel {

/// A name of at most 21 characters and its terminator.
using ControllerName = std::array<char, 21 + 1>;

extern const std::array<ControllerName, 128> controllerNames;

}  // namespace tavrel
