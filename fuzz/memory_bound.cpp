#include "fuzz/memory_bound.h"

#include <new>

#include "fuzz/require.h"

// Defined by the sanitizers' runtime. Weak, so that a program without it links too.
extern "C" {
[[gnu::weak]] int __sanitizer_install_malloc_and_free_hooks(void (*onMalloc)(const volatile void*,
                                                                             std::size_t),
                                                            void (*onFree)(const volatile void*));
[[gnu::weak]] std::size_t __sanitizer_get_allocated_size(const volatile void* block);
}

namespace tavrel::fuzz {

namespace {

constexpr std::size_t kAlwaysAllowed = std::size_t{16} << 20U;
constexpr std::size_t kLargeBlock = std::size_t{1} << 20U;

struct Account {
  bool open = false;
  LargeBlocks largeBlocks = LargeBlocks::count;
  std::ptrdiff_t held = 0;
  std::ptrdiff_t bound = 0;
};

Account account;

void onMalloc(const volatile void* /*block*/, std::size_t size) {
  if (account.open) {
    account.held += static_cast<std::ptrdiff_t>(size);
    require(account.held <= account.bound);
  }
}

void onFree(const volatile void* block) {
  if (account.open && block != nullptr) {
    account.held -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(block));
  }
}

bool installHooks() {
  return __sanitizer_install_malloc_and_free_hooks != nullptr &&
         __sanitizer_install_malloc_and_free_hooks(onMalloc, onFree) != 0;
}

}  // namespace

MemoryBound::MemoryBound(std::size_t inputSize, LargeBlocks largeBlocks) {
  [[maybe_unused]] static const bool installed = installHooks();
  account.largeBlocks = largeBlocks;
  account.bound = static_cast<std::ptrdiff_t>(4 * inputSize + kAlwaysAllowed);
  account.held = 0;
  account.open = true;
}

MemoryBound::~MemoryBound() { account.open = false; }

}  // namespace tavrel::fuzz

/// All blocks whose size comes from a file are allocated with this form.
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  using namespace tavrel::fuzz;
  if (account.open && account.largeBlocks == LargeBlocks::refuse && size > kLargeBlock) {
    return nullptr;
  }
  try {
    return ::operator new[](size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
