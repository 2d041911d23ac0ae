#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>

namespace communication {

/// The samples of one stream over a time window, for a peak over the last window length. The
/// queue holds at most window ÷ sample period + 1 samples (34 for 1000 ms at 30 ms), so a stream
/// that runs for hours grows nothing; the oldest goes first.
class TimeWindow {
public:
    /// `samplePeriodMs` must not be 0.
    TimeWindow(uint32_t windowMs, uint32_t samplePeriodMs);

    void push(float value, uint32_t timeMs);
    /// The largest value younger than the window at `nowMs`, from 0: an empty window, or one
    /// with only stale or negative values, gives 0. Ages are taken modulo 2^32 ms, so the
    /// clock's wrap does not make old samples young.
    float peak(uint32_t nowMs) const;

    std::size_t capacity() const { return mCapacity; }
    std::size_t size() const { return mSamples.size(); }

private:
    struct Sample {
        float value;
        uint32_t timeMs;
    };

    uint32_t mWindowMs;
    std::size_t mCapacity;
    std::deque<Sample> mSamples;
};

} // namespace communication
