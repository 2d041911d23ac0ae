#include "RingBuffer.h"

#include <algorithm>
#include <cstring>

namespace halyard::protocol {

RingBuffer::RingBuffer(std::uint8_t* storage, std::size_t capacity)
    : mStorage(storage)
    , mCapacity(capacity) {}

std::size_t RingBuffer::Count() const {
    return mCapacity == 0 ? 0 : (mCapacity - mRead + mWrite) % mCapacity;
}

std::size_t RingBuffer::Free() const {
    return mCapacity == 0 ? 0 : mCapacity - 1 - Count();
}

std::size_t RingBuffer::Write(const std::uint8_t* data, std::size_t length) {
    const std::size_t taken = std::min(Free(), length);
    const std::size_t first = std::min(taken, mCapacity - mWrite);
    if (taken == 0) {
        return 0;
    }
    std::memcpy(mStorage + mWrite, data, first);
    std::memcpy(mStorage, data + first, taken - first);
    mWrite = (mWrite + taken) % mCapacity;
    return taken;
}

std::size_t RingBuffer::Read(std::uint8_t* out, std::size_t length) {
    const std::size_t given = std::min(Count(), length);
    const std::size_t first = std::min(given, mCapacity - mRead);
    if (given == 0) {
        return 0;
    }
    std::memcpy(out, mStorage + mRead, first);
    std::memcpy(out + first, mStorage, given - first);
    mRead = (mRead + given) % mCapacity;
    return given;
}

void RingBuffer::Discard(std::size_t length) {
    if (mCapacity != 0) {
        mRead = (mRead + std::min(Count(), length)) % mCapacity;
    }
}

bool RingBuffer::PeekAt(std::size_t position, std::uint8_t& byte) const {
    if (position >= Count()) {
        return false;
    }
    byte = mStorage[(mRead + position) % mCapacity];
    return true;
}

bool RingBuffer::FindByteFrom(std::size_t position, std::uint8_t byte, std::size_t& found) const {
    // The frame search runs this over every received byte: scan the (at most two) contiguous
    // pieces with memchr rather than index modulo the capacity byte by byte.
    const std::size_t count = Count();
    if (position >= count) {
        return false;
    }
    const std::size_t start = (mRead + position) % mCapacity;
    const std::size_t firstLength = std::min(count - position, mCapacity - start);
    const void* hit = std::memchr(mStorage + start, byte, firstLength);
    if (hit != nullptr) {
        found = position + static_cast<std::size_t>(static_cast<const std::uint8_t*>(hit) -
                                                    (mStorage + start));
        return true;
    }
    const std::size_t secondLength = count - position - firstLength;
    hit = secondLength == 0 ? nullptr : std::memchr(mStorage, byte, secondLength);
    if (hit != nullptr) {
        found = position + firstLength +
                static_cast<std::size_t>(static_cast<const std::uint8_t*>(hit) - mStorage);
        return true;
    }
    return false;
}

void RingBuffer::Reset() {
    mRead = 0;
    mWrite = 0;
}

} // namespace halyard::protocol
