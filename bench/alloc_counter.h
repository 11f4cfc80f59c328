// Heap allocations of the benchmark program: it replaces the global operator new and operator delete
// (every form) with versions that count, per thread, and otherwise behave as the standard ones. The
// shared libraries the program loads (the platform stand-in among them) allocate through them too.
#pragma once

#include <cstdint>

namespace oet_bench {

struct HeapCounts {
  uint64_t allocations = 0;  // successful operator new calls
  uint64_t frees = 0;        // operator delete calls with a non-null pointer
  // The allocations made while the replay tool marks the thread as inside an export (its records'
  // reading and writing left out).
  uint64_t allocations_in_export = 0;
};

// What this thread has allocated and freed so far.
HeapCounts ThreadHeapCounts();

}  // namespace oet_bench
