#pragma once

#include <QByteArray>

#include <random>

/// Every chance in the simulator comes from here, so that one seed repeats a run exactly, on any machine.
class RandomSource
{
public:
    explicit RandomSource(quint32 seed);

    /// A source of its own for one purpose ("rssi 2210"), fixed by seed and purpose alone. Users of separate streams do
    /// not disturb each other: how often a scan was answered must not change the next tightening.
    RandomSource stream(const QByteArray& purpose) const;

    /// Even spread over [low, high).
    double between(double low, double high);

    /// True once in `chances` draws on average; chances >= 1.
    bool oneIn(int chances);

private:
    quint32 m_seed;
    std::mt19937 m_engine;
};
