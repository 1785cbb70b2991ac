// Reader of one Standard MIDI Files 1.0 file: loads it whole, reads its first two chunk headers,
// and reads the events of its first track. Owns the file's image, which it never changes.
// Operations return false on failure. Loading and writing report failures on standard error;
// reading events is silent.
#pragma once

#include <array>
#include <cstdint>

#include "foundation/byte_block.h"
#include "foundation/disk_file.h"
#include "midi/midi_event.h"

namespace tavrel {

class MidiFile {
 public:
  explicit MidiFile(const char* name);

  // Loading (midi_file.cpp).

  /// Reads the file into `image` and moves the cursor to its start. Silently fails if the file is
  /// empty or memory runs out. On failure the object keeps the image that it had.
  bool loadImage();
  /// Takes ownership of a file's `size` bytes, as `loadImage` does after reading them. Silently
  /// fails if there are none.
  bool useImage(ByteBlock bytes, std::uint32_t size);
  /// Reads the header chunk at the cursor.
  bool readHeaderChunk();
  /// Reads the header of a track chunk at the cursor. `rewind` then goes to this track.
  bool readTrackHeader();

  // These reads return false at the end of the image and leave `out` alone.
  bool readByte(std::uint8_t& out) {
    if (cursor == imageEnd) {
      atEnd = 1;
      return false;
    }
    out = *cursor++;
    ++bytesRead;
    return true;
  }
  /// Reads a big-endian 16-bit number.
  bool readWord(std::uint16_t& out);
  /// Reads a big-endian 32-bit number.
  bool readLong(std::uint32_t& out);

  // Reading events (event_reader.cpp).

  /// Moves the cursor to the first event of the track.
  void rewind();
  /// Reads a variable-length quantity. Keeps the low 32 bits of a longer one.
  bool readVarLen(std::uint32_t& out);
  /// Reads `count` bytes. If fewer are left, copies those and returns false.
  bool readBytes(std::uint8_t* dest, std::uint32_t count);
  /// Reads the event at the cursor into `ev`, which must be cleared. After a failure too, `ev` may
  /// own a payload. Doesn't stop at an end-of-track event, only at the end of the image.
  bool getNextEvent(MidiEvent& ev);

  // Tempo (tempo_queries.cpp). These search the track from its start, moving the cursor. They
  // return false if the first tempo event has fewer than three bytes, or if there is none before
  // the end of the track.

  bool firstTempo(std::uint32_t& microsecondsPerQuarter);

  // Not used by the tool; for programs that list, search or copy sequences. tavkit prints events
  // through them.

  /// Unnamed, so there is nothing to load.
  MidiFile();

  /// Runs `loadImage`, `readHeaderChunk` and `readTrackHeader`. Silently fails if the format isn't
  /// 0.
  bool loadType0();
  /// Writes the image to a new file.
  bool writeImageAs(const char* fileName);

  // The free functions of these names.
  static MidiEvent* newEvent() { return tavrel::newEvent(); }
  static void deleteEvent(MidiEvent* ev) { tavrel::deleteEvent(ev); }

  /// Like `firstTempo`. A tempo of 0 microseconds is infinitely fast.
  bool firstTempoBpm(float& beatsPerMinute);
  /// Like `firstTempo`, in whole milliseconds per quarter note.
  bool firstTempoMs(std::uint32_t& milliseconds);

  // Text dump on standard output (text_dump.cpp).

  /// Returns the bar of the event, from 1. A bar has four quarter notes. If `ppqn` is 0, every
  /// event is in bar 1.
  [[nodiscard]] std::uint32_t barNumber(const MidiEvent& ev) const;
  /// Returns bar, beat and tick of the event. Valid until the next call.
  const char* timeText(const MidiEvent& ev);
  /// Returns name and octave of a note: note 60 is C4 if `octaveBase` is 1, else C3. Valid until
  /// the next call.
  const char* noteName(std::uint8_t note, std::uint8_t octaveBase);
  void printHeaderInfo();
  /// Prints the event as one line. The line of a meta event of unknown type is left unterminated;
  /// an event of unknown kind is reported on standard error.
  void printEvent(const MidiEvent& ev);
  /// Prints the event if a bit of `mask` selects its kind (event_filter.cpp).
  void printEventFiltered(const MidiEvent& ev, std::uint32_t mask);
  /// Does the same for events of one channel, 1 to 16. Channel 0 means all events.
  void printEventOnChannel(const MidiEvent& ev, std::uint32_t mask, std::uint8_t channel);

  // Search (event_search.cpp). A track without an end-of-track event is reported on standard error.

  /// Finds the next event with exactly that status, from the cursor or from the start of the track.
  /// Frees the payload of `ev` first. On failure `ev` holds the last event read.
  bool findEvent(MidiEvent& ev, std::uint32_t status, bool fromCursor);
  /// Finds the next event with that status and that first payload byte.
  bool findEvent(MidiEvent& ev, std::uint32_t status, std::uint8_t firstByte, bool fromCursor);
  /// Finds the first event of the track with that status.
  bool findEvent(MidiEvent& ev, std::uint32_t status);
  /// Returns true if the track has an event of a selected kind on `channel`, 0 to 15.
  bool channelHasEvents(std::int16_t channel, std::uint8_t kinds);
  /// Counts the notes that sound at once at most, from the cursor to the end of the track. Prints a
  /// line for each new maximum and each end of a note.
  bool countPolyphony(std::uint16_t& out);

  std::uint32_t accumulatedTime = 0;       ///< ticks since the last rewind
  ByteBlock image;                         ///< the whole file
  const std::uint8_t* cursor = nullptr;    ///< the next byte to read
  const std::uint8_t* imageEnd = nullptr;  ///< one past the last byte
  std::uint8_t atEnd = 0;                  ///< 1 after a read at the end of the image
  bool memoryRanOut = false;               ///< for the payload of the last event
  std::uint32_t bytesRead = 0;             ///< since `loadImage`; a rewind doesn't change it

  // The header chunk, big-endian:
  //
  //   offset  width  content
  //   0       4      "MThd"
  //   4       4      length of the rest; ignored
  //   8       2      format
  //   10      2      number of tracks; ignored
  //   12      2      division, taken as ticks per quarter note
  std::uint8_t headerValid = 0;  ///< 1 after a complete read
  std::array<char, 4 + 1> headerId{};
  std::uint32_t headerLength = 0;
  std::uint16_t format = 0;
  std::uint16_t numberOfTracks = 0;
  std::uint16_t ppqn = 0;

  // The header of the first track chunk, directly after the header chunk's 14 bytes:
  //
  //   offset  width  content
  //   0       4      "MTrk"
  //   4       4      length of the events; ignored
  std::uint8_t trackValid = 0;  ///< 1 after a complete read
  std::array<char, 4 + 1> trackId{};
  std::uint32_t trackLength = 0;
  std::uint32_t trackHeaderOffset = 0;  ///< of the identifier, in the image
  std::uint32_t trackDataOffset = 0;    ///< of the first event, in the image

  std::uint32_t eventCount = 0;  ///< events begun since the last rewind
  std::uint32_t imageSize = 0;
  std::uint32_t runningStatus = 0;  ///< the last status byte of any kind; 0 before the first one

 protected:
  DiskFile disk_;  // open only during `loadImage`

 private:
  bool readIdentifier(std::array<char, 4 + 1>& identifier);
  bool readStatus(MidiEvent& ev);
  bool readChannelMessage(MidiEvent& ev, std::uint32_t length);
  bool readMeta(MidiEvent& ev);
  bool readSystem(MidiEvent& ev);
  bool readPayload(MidiEvent& ev);
  void printTimeColumn(const MidiEvent& ev);

  std::array<char, 20> timeBuffer_{};  // the result of `timeText`
  std::array<char, 8> noteBuffer_{};   // the result of `noteName`
};

}  // namespace tavrel
