// Requests for large pages, for memory that a run fills and keeps. Fresh memory is mapped page by
// page on first use. For a large bank that takes longer than reading the files, and one large page
// replaces 512 small ones. On hosts without such requests nothing happens; nothing can fail.
#pragma once

#include <cstddef>

namespace tavrel {

/// Requests large pages for those parts of the `size` bytes at `block` that fill whole ones. Call
/// it before the bytes are first used; their contents don't change.
void preferLargePages(void* block, std::size_t size);

/// Makes the heap serve all but the largest blocks from one range of large pages. The process keeps
/// freed memory for its next blocks. Meant for the start of a short-lived program.
void prepareHeap();

}  // namespace tavrel
