// Number conversions of sound files: big-endian fields and 80-bit extended floats, byte orders and
// signs of samples, and the units in which instruments state pitch, time and gain.
// Stateless: every operation is a function of its arguments. Only `swapBytes` can fail, when it is
// asked to allocate.
#pragma once

#include <cstdint>

namespace tavrel {

class SoundConvert {
 public:
  /// Reads 2 big-endian bytes.
  static void readWord(std::uint16_t& value, const std::uint8_t* bytes);

  /// Reads 4 big-endian bytes.
  static void readLong(std::uint32_t& value, const std::uint8_t* bytes);

  /// Reads the 10 bytes of an 80-bit extended float as a whole number, a half rounded upward.
  static void readExtended(std::uint32_t& value, const std::uint8_t* bytes);

  /// Writes `value` as the 10 bytes that `readExtended` reads back; only 1 comes back as 2.
  static void makeExtended(std::uint8_t* bytes, std::uint32_t value);

  /// A signed 8-bit sample as an unsigned one, and back.
  static constexpr std::uint8_t flipSign(std::uint8_t byte) {
    return static_cast<std::uint8_t>(byte ^ 0x80U);
  }

  /// Copies whole pairs of bytes, each pair exchanged, and gives the destination. With a null
  /// `destination` it makes one of `count` bytes, which the caller frees with delete[]; null when
  /// memory is short. Source and destination may be the same block.
  static std::uint8_t* swapBytes(const std::uint8_t* source, std::uint8_t* destination,
                                 std::uint32_t count);

  /// Whole semitones, truncated toward zero.
  static std::int32_t centsToSemitones(std::int16_t cents);

  /// Hertz of an absolute pitch in 1/65536 of a cent; 6900 cents are 440 Hz.
  static double pitchToHertz(std::int32_t pitch);

  /// Tenths in 16.16 fixed point, as a number of units.
  static double fixedTenthsToDouble(std::int32_t tenths);

  /// How many samples of `bits` bits come from `size` bytes; for 4 bits, how many the ADPCM encoder
  /// takes from as many bytes of 16-bit samples. 0 for a width other than 4, 8 and 16.
  static std::uint32_t sampleCount(std::uint32_t size, std::uint16_t bits);

  /// The low 8 bits of a gain, scaled by 2.65625 and truncated toward zero; 0 for a gain above 0.
  static std::uint8_t gainToByte(std::int16_t gain);

  /// Where `value` stands in a falling table of thresholds: 0 near its start, 28 at its end, 31 for
  /// a value that lies outside.
  static std::uint16_t descendingThresholdIndex(double value);

  /// Milliseconds of a logarithmic time: 0 is a second, and 1200 * 65536 units double it.
  static double timeToMilliseconds(std::int32_t time);

  /// -50 to 50 percent as 0 to 127, rounded up.
  static std::int32_t percentTo127(std::int8_t percent);

  /// 0 to 127 as 0 to 31, rounded up.
  static std::int32_t scale127To31(std::int8_t value);
};

}  // namespace tavrel
