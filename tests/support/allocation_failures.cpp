#include "tests/support/allocation_failures.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

// Other threads of the process allocate, too.
std::atomic<bool> Counting{false};
std::atomic<std::size_t> Made{0};
std::atomic<std::size_t> FirstFailing{0};
std::atomic<std::size_t> LastFailing{0};
std::atomic<std::size_t> Live{0};

void Begin(std::size_t first, std::size_t last) {
    Made = 0;
    FirstFailing = first;
    LastFailing = last;
    Counting = true;
}

bool IsToFail() {
    if (!Counting) {
        return false;
    }
    const std::size_t number = ++Made;
    return number >= FirstFailing && number <= LastFailing;
}

} // namespace

void allocation_failures::FailOne(std::size_t n) {
    Begin(n, n);
}

void allocation_failures::FailFrom(std::size_t n) {
    Begin(n, std::numeric_limits<std::size_t>::max());
}

std::size_t allocation_failures::Count() {
    return Made;
}

void allocation_failures::End() {
    Counting = false;
}

bool allocation_failures::Resume(bool counting) {
    return Counting.exchange(counting);
}

std::size_t allocation_failures::LiveBlocks() {
    return Live;
}

void* operator new(std::size_t size) {
    void* const block = IsToFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++Live;
    return block;
}

void operator delete(void* block) noexcept {
    Live -= block == nullptr ? 0 : 1;
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}

extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size) {
    return IsToFail() ? nullptr : __real_calloc(count, size);
}
}
