#include "SampleRing.h"

#include <algorithm>

namespace plots {

SampleRing::SampleRing(std::size_t capacity, std::size_t columns)
    : mCapacity(std::max<std::size_t>(capacity, 1))
    , mColumns(columns)
    , mTimes(mCapacity)
    , mValues(mCapacity * columns) {}

void SampleRing::push(std::int64_t timeMs, const double* values) {
    std::size_t target = 0;
    if (mSize < mCapacity) {
        target = slot(mSize);
        ++mSize;
    } else {
        target = mOldest;
        mOldest = (mOldest + 1) % mCapacity;
    }
    mTimes[target] = timeMs;
    std::copy(values, values + mColumns,
              mValues.begin() + static_cast<std::ptrdiff_t>(target * mColumns));
}

void SampleRing::clear() {
    mOldest = 0;
    mSize = 0;
}

std::size_t SampleRing::firstAtOrAfter(std::int64_t timeMs) const {
    std::size_t low = 0;
    std::size_t high = mSize;
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (timeAt(middle) < timeMs) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

} // namespace plots
