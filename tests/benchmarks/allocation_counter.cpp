#include "allocation_counter.h"

#include <atomic>
#include <cstddef>

// The C library's own functions stand behind the ones below, which count and pass on.
// NOLINTBEGIN(bugprone-reserved-identifier): their names are the C library's.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {
std::atomic<std::int64_t> g_allocations{0};
}

std::int64_t allocations()
{
    return g_allocations.load(std::memory_order_relaxed);
}

extern "C" {

void* malloc(std::size_t size)
{
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size)
{
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(memory, size);
}
}
