// What happens to temporary files when a signal ends the program. Not used by the tool. On Windows
// they stay: a program can't delete a file there that it has open.
#pragma once

namespace tavrel {

/// Makes the signals that ask a program to end, such as SIGINT and SIGTERM, delete the files of all
/// `DoomedFile` objects first. Those that the caller of the program ignores stay ignored. A crash
/// deletes nothing.
void deleteDoomedFilesOnSignals();

/// While one exists, these signals wait. Does nothing on Windows.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;
  HeldSignals(HeldSignals&&) = delete;
  HeldSignals& operator=(HeldSignals&&) = delete;

 private:
  static int depth;
};

/// A file that a signal deletes.
class DoomedFile {
 public:
  DoomedFile() = default;
  ~DoomedFile() { spare(); }
  DoomedFile(const DoomedFile&) = delete;
  DoomedFile& operator=(const DoomedFile&) = delete;
  DoomedFile(DoomedFile&&) = delete;
  DoomedFile& operator=(DoomedFile&&) = delete;

  /// Borrows the host's path of the file until `spare`.
  void doom(const char* path);

  /// Lets the file live.
  void spare();

  /// Deletes all doomed files. Calls nothing that a signal handler must not call.
  static void deleteAll();

 private:
  static DoomedFile* first;

  const char* path_ = nullptr;
  DoomedFile* next_ = nullptr;
  DoomedFile* previous_ = nullptr;
};

}  // namespace tavrel
