// One file in the form of Standard MIDI Files 1.0: loads it whole, judges its first two chunk
// headers, and reads, times, prints and searches the events of its first track.
// Owns the file's image, which it never changes. Operations give false; loading says why on
// standard error, reading says nothing. Nothing but `loadImage` and the writing touches the disk.
#pragma once

#include <array>
#include <cstdint>

#include "foundation/byte_block.h"
#include "foundation/disk_file.h"
#include "midi/midi_event.h"

namespace tavrel {

class MidiFile {
 public:
  /// Without a name: there is nothing to load.
  MidiFile();
  explicit MidiFile(const char* name);

  // Loading (midi_file.cpp).

  /// Reads the file into `image` and puts the cursor at its start. An empty file is a failure
  /// without a word.
  bool loadImage();
  /// Reads the header chunk at the cursor.
  bool readHeaderChunk();
  /// Reads a track chunk's header at the cursor; its events become the ones that `rewind` goes to.
  bool readTrackHeader();
  /// The three steps above. False, without a word, for a format other than 0 too.
  bool loadType0();
  /// Takes one byte. False at the end of the image, `out` being left alone then, as in the others.
  bool readByte(std::uint8_t& out) {
    if (cursor == imageEnd) {
      atEnd = 1;
      return false;
    }
    out = *cursor++;
    ++bytesRead;
    return true;
  }
  /// Takes two bytes, the first one the high one.
  bool readWord(std::uint16_t& out);
  /// Takes two words, the first one the high one.
  bool readLong(std::uint32_t& out);
  /// Writes the image to a new file.
  bool writeImageAs(const char* fileName);

  // Reading events (event_reader.cpp).

  /// Goes back to the first event of the track whose header was read.
  void rewind();
  /// Takes a variable-length quantity; of one that is longer than 32 bits the low bits remain.
  bool readVarLen(std::uint32_t& out);
  /// Takes `count` bytes. On false, those that were left in the image are in `dest`.
  bool readBytes(std::uint8_t* dest, std::uint32_t count);
  /// Reads the event under the cursor into `ev`, which the caller has cleared. True when it is
  /// complete. The holder of `ev` owns its payload, also after false. The end of the track is an
  /// event like any other: only the end of the image ends the reading.
  bool getNextEvent(MidiEvent& ev);

  // Tempo (tempo_queries.cpp). They walk the track from its start and move the cursor. False if
  // there is no tempo before the end of the track, or it has fewer than three bytes.

  bool firstTempo(std::uint32_t& microsecondsPerQuarter);
  /// A tempo of 0 microseconds is infinitely fast.
  bool firstTempoBpm(float& beatsPerMinute);
  /// Whole milliseconds per quarter note.
  bool firstTempoMs(std::uint32_t& milliseconds);

  // Text dump (text_dump.cpp), on standard output.

  /// The bar, from 1, in which the event stands. A bar has four quarter notes; without ticks per
  /// quarter note everything stands in bar 1.
  [[nodiscard]] std::uint32_t barNumber(const MidiEvent& ev) const;
  /// Bar, beat and tick of the event. Like `noteName`, valid until the next call.
  const char* timeText(const MidiEvent& ev);
  /// Name and octave of a note: note 60 is C4 with an `octaveBase` of 1, else C3.
  const char* noteName(std::uint8_t note, std::uint8_t octaveBase);
  void printHeaderInfo();
  void printEvent(const MidiEvent& ev);
  /// Prints the event if a bit of `mask` selects its kind.
  void printEventFiltered(const MidiEvent& ev, std::uint32_t mask);
  /// The same for the events of one channel, 1 to 16, or with 0 for all events.
  void printEventOnChannel(const MidiEvent& ev, std::uint32_t mask, std::uint8_t channel);

  // Search (event_search.cpp). A search says so if the track ends without its end event.

  /// Finds the next event with that exact status, from the cursor or from the start of the track.
  /// Frees what `ev` held. False leaves the end of the track, or an event cut short, in `ev`.
  bool findEvent(MidiEvent& ev, std::uint32_t status, bool fromCursor);
  /// The same for an event that also has `firstByte` as its first payload byte.
  bool findEvent(MidiEvent& ev, std::uint32_t status, std::uint8_t firstByte, bool fromCursor);
  /// Finds the first event of the track with that status.
  bool findEvent(MidiEvent& ev, std::uint32_t status);
  /// Are there events of a kind that `kinds` selects on `channel`, which counts from 0?
  bool channelHasEvents(std::int16_t channel, std::uint8_t kinds);
  /// Counts the notes that sound at once at most, from the cursor to the end of the track. False if
  /// the track ends without its end event.
  bool countPolyphony(std::uint16_t& out);

  std::uint32_t accumulatedTime = 0;       ///< ticks since the last rewind
  ByteBlock image;                         ///< the whole file
  const std::uint8_t* cursor = nullptr;    ///< the next byte to read; null without a whole image
  const std::uint8_t* imageEnd = nullptr;  ///< one past the last byte
  std::uint8_t atEnd = 0;                  ///< 1 once a byte was missing
  std::uint32_t bytesRead = 0;             ///< bytes taken since `loadImage`, rewinds or not

  // The header chunk, big-endian:
  //
  //   offset  width  content
  //   0       4      "MThd"
  //   4       4      length of what follows; the words are read whatever it says
  //   8       2      format
  //   10      2      number of tracks; not compared with anything
  //   12      2      division, taken as ticks per quarter note
  std::uint8_t headerValid = 0;  ///< 1 once it was read completely
  std::array<char, 4 + 1> headerId{};
  std::uint32_t headerLength = 0;
  std::uint16_t format = 0;
  std::uint16_t numberOfTracks = 0;
  std::uint16_t ppqn = 0;

  // The header of the first track chunk, which stands directly behind:
  //
  //   offset  width  content
  //   0       4      "MTrk"
  //   4       4      length of the events; not compared with the image
  std::uint8_t trackValid = 0;  ///< 1 once it was read completely
  std::array<char, 4 + 1> trackId{};
  std::uint32_t trackLength = 0;
  std::uint32_t trackHeaderOffset = 0;  ///< of the identifier, in the image
  std::uint32_t trackDataOffset = 0;    ///< of the first event, in the image

  std::uint32_t eventCount = 0;  ///< events begun since the last rewind
  std::uint32_t imageSize = 0;
  std::uint32_t runningStatus = 0;  ///< the last status byte, of any kind; 0 before the first one

 protected:
  /// Whether all of `imageSize` bytes are there: a load that ran out of memory, or of file, leaves
  /// fewer.
  [[nodiscard]] bool isImageWhole() const { return cursor != nullptr || imageSize == 0; }

  DiskFile disk;  // open only during `loadImage`

 private:
  bool readIdentifier(std::array<char, 4 + 1>& identifier);
  bool readStatus(MidiEvent& ev);
  bool readChannelMessage(MidiEvent& ev, std::uint32_t length);
  bool readMeta(MidiEvent& ev);
  bool readSystem(MidiEvent& ev);
  bool readPayload(MidiEvent& ev);
  void printTimeColumn(const MidiEvent& ev);

  std::array<char, 20> timeBuffer{};  // the result of `timeText`
  std::array<char, 8> noteBuffer{};   // the result of `noteName`
};

}  // namespace tavrel
