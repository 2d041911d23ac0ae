#pragma once

#include "SimulatorOptions.h"

#include <QByteArray>
#include <QRandomGenerator>

namespace simulator {

/// Fault injection for the frames of one direction. Every frame draws from the direction's own
/// random sequence, so a seed repeats the same faults on the same frames.
class LineFaults {
public:
    enum class Fate { Pass, Drop, Corrupt, Duplicate };

    LineFaults(const DirectionFaults& rates, quint64 seed);

    /// Decides what happens to the next frame. At most one fault per frame.
    Fate nextFate();
    /// Flips one bit of one byte among the first `length` bytes of `bytes`.
    void corrupt(QByteArray& bytes, qsizetype length);

    bool active() const;

private:
    DirectionFaults mRates;
    QRandomGenerator mRandom;
};

} // namespace simulator
