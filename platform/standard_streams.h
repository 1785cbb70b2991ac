// Prepares the standard streams before the first line is printed.
#pragma once

namespace tavrel {

/// Makes the process ready to print and to write files:
/// - Standard streams that the caller has closed are opened on the null device, for reading only:
///   writes to them fail. Otherwise the next file would get such a stream's descriptor, and console
///   lines would end up in it.
/// - Lines end in a bare line feed on every host.
/// - A closed pipe or a limit on file sizes makes a write fail instead of ending the process.
void prepareStandardStreams();

}  // namespace tavrel
