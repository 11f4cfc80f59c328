#include "bench/alloc_counter.h"

#include <cstdlib>
#include <new>

#include "tools/replay/exports.h"

namespace {

thread_local uint64_t t_allocations = 0;
thread_local uint64_t t_frees = 0;
thread_local uint64_t t_allocations_in_export = 0;

void Count() noexcept {
  ++t_allocations;
  if (oet_replay::t_in_export) ++t_allocations_in_export;
}

void* Allocate(std::size_t size) noexcept {
  void* block = std::malloc(size == 0 ? 1 : size);
  if (block != nullptr) Count();
  return block;
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) noexcept {
  const auto align = static_cast<std::size_t>(alignment);
  const std::size_t rounded = (size + align - 1) / align * align;
  void* block = std::aligned_alloc(align, rounded == 0 ? align : rounded);
  if (block != nullptr) Count();
  return block;
}

void Free(void* block) noexcept {
  if (block == nullptr) return;
  ++t_frees;
  std::free(block);
}

}  // namespace

namespace oet_bench {

HeapCounts ThreadHeapCounts() {
  return HeapCounts{t_allocations, t_frees, t_allocations_in_export};
}

}  // namespace oet_bench

void* operator new(std::size_t size) {
  if (void* block = Allocate(size)) return block;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
  if (void* block = Allocate(size)) return block;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  if (void* block = AllocateAligned(size, alignment)) return block;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  if (void* block = AllocateAligned(size, alignment)) return block;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return AllocateAligned(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return AllocateAligned(size, alignment);
}

void operator delete(void* block) noexcept {
  Free(block);
}
void operator delete[](void* block) noexcept {
  Free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  Free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  Free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  Free(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  Free(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
  Free(block);
}
void operator delete[](void* block, std::align_val_t) noexcept {
  Free(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  Free(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
  Free(block);
}
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  Free(block);
}
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  Free(block);
}
