// What a working instance of the device plugin costs to make, and what it holds in memory.

#include <benchmark/benchmark.h>

// Benchmarks are registered by static objects.
// clazy:excludeall=non-pod-global-static

#include <malloc.h>

#include "workplace_fixture.h"

namespace {

void makeInstance(benchmark::State& state)
{
    WorkplaceFixture workplace(QStringLiteral("/dev/null"));
    for (auto _ : state) {
        delete workplace.host.createInstance(*workplace.deviceRoot, QUuid::createUuid());
    }

    constexpr int c_instances = 200;
    const std::size_t before = mallinfo2().uordblks;
    for (int i = 0; i < c_instances; ++i) {
        workplace.host.createInstance(*workplace.deviceRoot, QUuid::createUuid());
    }
    state.counters["bytes"] = double(mallinfo2().uordblks - before) / c_instances;
}

// As many as a process may have. Qt keeps what each has registered for panels and looks through all of it, so that the
// ten-thousandth costs more than the first: to be measured in a process of its own.
BENCHMARK(makeInstance)->Name("instance/make_and_delete")->Iterations(256)->Repetitions(1);

} // namespace
