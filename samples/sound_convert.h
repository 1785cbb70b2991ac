// Number conversions of sound files: big-endian fields, 80-bit extended floats, byte order and sign
// of samples, and the units in which instruments state pitch, time and gain.
// Stateless: every operation is a function of its arguments. Only `swapBytes` can fail, if it has
// to allocate.
#pragma once

#include <cstdint>

namespace tavrel {

class SoundConvert {
 public:
  /// Reads the 10 bytes of an 80-bit extended float as an integer; a half is rounded up.
  static void readExtended(std::uint32_t& value, const std::uint8_t* bytes);

  /// Converts an 8-bit sample from signed to unsigned or back.
  static constexpr std::uint8_t flipSign(std::uint8_t byte) {
    return static_cast<std::uint8_t>(byte ^ 0x80U);
  }

  /// Copies whole pairs of bytes with the two bytes of each pair exchanged, and returns
  /// `destination`, which may be the same block as `source`. If `destination` is null, allocates
  /// `count` bytes that the caller owns and frees with delete[]; returns null if memory runs out.
  static std::uint8_t* swapBytes(const std::uint8_t* source, std::uint8_t* destination,
                                 std::uint32_t count);

  // Not used by the tool; for programs that convert fields of sound files and of instruments, as
  // tavkit does with root notes.

  /// Returns how many samples of `bits` bits are in `size` bytes. For 4 bits, returns how many the
  /// ADPCM encoder takes from `size` bytes of 16-bit samples. Returns 0 for other widths than 4, 8
  /// and 16.
  static std::uint32_t sampleCount(std::uint32_t size, std::uint16_t bits);

  /// Reads 2 big-endian bytes.
  static void readWord(std::uint16_t& value, const std::uint8_t* bytes);

  /// Reads 4 big-endian bytes.
  static void readLong(std::uint32_t& value, const std::uint8_t* bytes);

  /// Writes `value` as the 10 bytes from which `readExtended` reads the same value; 1 is the
  /// exception and is read as 2.
  static void makeExtended(std::uint8_t* bytes, std::uint32_t value);

  /// Returns whole semitones, truncated toward zero.
  static std::int32_t centsToSemitones(std::int16_t cents);

  /// Returns the frequency of an absolute pitch in 1/65536 of a cent; 6900 cents are 440 Hz.
  static double pitchToHertz(std::int32_t pitch);

  /// Converts tenths of a unit, in 16.16 fixed point, to units.
  static double fixedTenthsToDouble(std::int32_t tenths);

  /// Returns the low 8 bits of `gain` times 2.65625, truncated toward zero; 0 for a gain above 0.
  static std::uint8_t gainToByte(std::int16_t gain);

  /// Returns the position of `value` in a falling table of thresholds: 0 to 28, or 31 for a value
  /// outside the table.
  static std::uint16_t descendingThresholdIndex(double value);

  /// Converts a logarithmic time to milliseconds: 0 is one second, and each 1200 * 65536 units
  /// double it. The special value 0x8000000 means no time and returns 0.
  static double timeToMilliseconds(std::int32_t time);

  /// Maps -50 to 50 percent to 0 to 127, rounded up.
  static std::int32_t percentTo127(std::int8_t percent);

  /// Maps 0 to 127 to 0 to 31, rounded up.
  static std::int32_t scale127To31(std::int8_t value);
};

}  // namespace tavrel
