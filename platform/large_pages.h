// Large pages for memory that a run fills and keeps. A system hands fresh memory out a page at a
// time, at its first use, and for a bank of any size these steps take longer than reading the
// files: with large pages, 512 of them become one. Both calls are requests: where the host doesn't
// know them nothing happens, and nothing can fail.
#pragma once

#include <cstddef>

namespace tavrel {

/// The smallest block for which `preferLargePages` can do something.
constexpr std::size_t kLargePageSize = std::size_t{2} << 20U;

/// Asks for large pages behind the `size` bytes at `block`, as far as whole ones fit in. Best
/// called before the bytes are touched; their contents stay as they are.
void preferLargePages(void* block, std::size_t size);

/// Makes the heap serve all blocks but the largest from one stretch of large pages. Memory that is
/// freed stays with the process for its next blocks. For the start of a program that ends soon.
void prepareHeap();

}  // namespace tavrel
