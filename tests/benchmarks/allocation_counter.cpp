#include "allocation_counter.h"

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
// Of each thread: a count for all of them would cost as much as some allocations do.
thread_local std::int64_t t_allocations = 0;
} // namespace

std::int64_t allocations()
{
    return t_allocations;
}

extern "C" {

void* malloc(std::size_t size)
{
    ++t_allocations;
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    ++t_allocations;
    return __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size)
{
    ++t_allocations;
    return __libc_realloc(memory, size);
}
}
