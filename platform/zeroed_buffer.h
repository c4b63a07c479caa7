#pragma once

/// \file
/// Buffers of a size that a host or a console names: zero bytes to begin with, and pages that
/// nobody writes to cost nothing, so that a size of several GiB is no danger in itself.

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <type_traits>

namespace orvane::platform {

struct FreeMemory {
    void operator()(void* memory) const {
        std::free(memory);
    }
};

template <class Element> using ZeroedBuffer = std::unique_ptr<Element[], FreeMemory>;

/// Null when there is no memory for it. A count of 0 gives a buffer of no elements.
template <class Element> ZeroedBuffer<Element> AllocateZeroed(std::size_t count) {
    static_assert(std::is_trivially_copyable_v<Element>);
    const std::size_t atLeastOne = count == 0 ? 1 : count;
    return ZeroedBuffer<Element>(static_cast<Element*>(std::calloc(atLeastOne, sizeof(Element))));
}

} // namespace orvane::platform
