// One fuzz target as a program of libFuzzer. FUZZ_TARGET: the function of fuzz_targets.h.

#include <QByteArray>
#include <QCoreApplication>

#include <cstddef>
#include <cstdint>

#include "fuzz_targets.h"

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments)
{
    static const QCoreApplication application(*count, *arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Bytes of its own: one read behind their end is then noticed.
    fuzz::FUZZ_TARGET(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
