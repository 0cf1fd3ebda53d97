#include "random_source.h"

RandomSource::RandomSource(quint32 seed) : m_seed(seed), m_engine(seed) {}

RandomSource RandomSource::stream(const QByteArray& purpose) const
{
    // FNV-1a; qHash() differs from one run to the next.
    quint32 hash = 2166136261U ^ m_seed;
    for (const char c : purpose) {
        hash = (hash ^ static_cast<quint8>(c)) * 16777619U;
    }
    return RandomSource(hash);
}

double RandomSource::between(double low, double high)
{
    // By hand, because the standard's distributions may differ from one library to the next.
    return low + (high - low) * (static_cast<double>(m_engine()) / 4294967296.0);
}

bool RandomSource::oneIn(int chances)
{
    return between(0.0, chances) < 1.0;
}
