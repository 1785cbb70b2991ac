// Calls on files that fail when a test says so: the read, write and close of this program, those of
// the C++ library included, but for the standard streams.
#pragma once

#include <cstddef>

namespace tavrel::test {

enum class FileFault {
  noSpace,           // from this write on
  writeInterrupted,  // to be tried again
  writeCutShort,     // to be gone on with
  closeFails,
  seekFails,
  readFails,
  readAtEnd,  // the file has shrunk
  readInterrupted,
  readCutShort,
};

/// The `call`th call of the fault's kind fails, counted from 1.
void failFiles(FileFault fault, std::size_t call);

/// Ends the fault. True if it has struck.
bool restoreFiles();

}  // namespace tavrel::test
