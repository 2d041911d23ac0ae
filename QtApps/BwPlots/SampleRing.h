#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace plots {

/// The newest rows of a live plot, at most `capacity` of them: each a time in milliseconds and
/// one value per column (one column per line of the plot). The storage is taken once, when the
/// ring is built; a row pushed into a full ring takes the place of the oldest, so a stream of any
/// length costs the same memory.
class SampleRing {
public:
    SampleRing(std::size_t capacity, std::size_t columns);

    /// Appends a row of `columns()` values.
    void push(std::int64_t timeMs, const double* values);
    void clear();

    std::size_t capacity() const { return mCapacity; }
    std::size_t columns() const { return mColumns; }
    std::size_t size() const { return mSize; }

    /// Row `index`, 0 the oldest held, size() - 1 the newest.
    std::int64_t timeAt(std::size_t index) const { return mTimes[slot(index)]; }
    double valueAt(std::size_t index, std::size_t column) const {
        return mValues[slot(index) * mColumns + column];
    }
    /// The index of the oldest row at or after `timeMs` (size() when there is none). Rows come
    /// in time order, so this is a binary search.
    std::size_t firstAtOrAfter(std::int64_t timeMs) const;

private:
    std::size_t slot(std::size_t index) const { return (mOldest + index) % mCapacity; }

    std::size_t mCapacity;
    std::size_t mColumns;
    std::size_t mOldest = 0;
    std::size_t mSize = 0;
    std::vector<std::int64_t> mTimes;
    std::vector<double> mValues;
};

} // namespace plots
