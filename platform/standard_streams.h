// The standard streams, made safe before the first line is printed.
#pragma once

namespace tavrel {

/// Makes the process ready to print and to write files.
///
/// Standard streams that the caller has closed lead to the null device, so that no file of ours
/// takes their place and gets console lines in it; lines end in a bare line feed on every host; and
/// a reader that goes away, or a limit on file sizes, shows as a failed write, not as the end of
/// the process.
void prepareStandardStreams();

}  // namespace tavrel
