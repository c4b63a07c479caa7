#pragma once

/// \file
/// Buffers whose size a host or a console determines. They are zero at first, and pages that
/// are never written cost no memory, so a size of several GiB does no harm by itself.

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
