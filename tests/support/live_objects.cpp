#include "support/live_objects.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

constinit std::atomic<std::int64_t> g_liveBlocks{0};
constinit std::atomic<std::int64_t> g_allocatedBlocks{0};
constinit thread_local int g_allocationsUntilFailure = 0;  // 0 for no failure

bool IsToFail() {
    return g_allocationsUntilFailure > 0 && --g_allocationsUntilFailure == 0;
}

}  // namespace

// The other forms call these, except arrays under the address sanitizer, which has its own forms.
void* operator new(std::size_t size) {
    void* const block = IsToFail() ? nullptr : std::malloc(size != 0 ? size : 1);
    if (block == nullptr) throw std::bad_alloc();
    g_liveBlocks.fetch_add(1, std::memory_order_relaxed);
    g_allocatedBlocks.fetch_add(1, std::memory_order_relaxed);
    return block;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void operator delete(void* block) noexcept {
    if (block == nullptr) return;
    g_liveBlocks.fetch_sub(1, std::memory_order_relaxed);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

namespace tessara::testing {

std::int64_t LiveBlocks() {
    return g_liveBlocks.load(std::memory_order_relaxed);
}

std::int64_t AllocatedBlocks() {
    return g_allocatedBlocks.load(std::memory_order_relaxed);
}

FailAllocation::FailAllocation(int nth) {
    g_allocationsUntilFailure = nth;
}

FailAllocation::~FailAllocation() {
    g_allocationsUntilFailure = 0;
}

bool FailAllocation::HasFailed() const {
    return g_allocationsUntilFailure == 0;
}

}  // namespace tessara::testing
