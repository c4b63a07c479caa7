#pragma once

/// \file
/// Memory that runs out when a test says so: `operator new` of the whole process, and the `calloc`
/// of the driver's own objects (linked with --wrap=calloc). Any thread's.

#include <cstddef>

namespace allocation_failures {

/// Which of the allocations from now on fail; 1: the next one.
void FailOne(std::size_t n);
void FailFrom(std::size_t n);

/// Allocations since then.
std::size_t Count();

/// No more failures, and no more counting.
void End();

/// Whether allocations fail and count from now on. Tells whether they did before.
bool Resume(bool counting);

/// Blocks that `operator new` gave and nobody has deleted.
std::size_t LiveBlocks();

} // namespace allocation_failures
