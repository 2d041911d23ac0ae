#pragma once

#include <cstddef>
#include <cstdint>

namespace halyard::protocol {

/// A single-threaded circular byte queue over storage that the owner provides and keeps alive.
/// One slot always stays free, so a ring of capacity N holds at most N - 1 bytes. Positions
/// given to PeekAt and FindByteFrom count from the oldest byte.
class RingBuffer {
public:
    RingBuffer(std::uint8_t* storage, std::size_t capacity);

    std::size_t Capacity() const { return mCapacity; }
    std::size_t Count() const;
    std::size_t Free() const;
    bool IsEmpty() const { return mRead == mWrite; }

    /// Copies as many of the bytes as fit (possibly none); returns how many were taken.
    std::size_t Write(const std::uint8_t* data, std::size_t length);
    /// Moves up to `length` of the oldest bytes into `out`; returns how many.
    std::size_t Read(std::uint8_t* out, std::size_t length);
    /// Drops up to `length` of the oldest bytes.
    void Discard(std::size_t length);
    bool PeekAt(std::size_t position, std::uint8_t& byte) const;
    /// Finds the first `byte` at or after `position`; false when there is none.
    bool FindByteFrom(std::size_t position, std::uint8_t byte, std::size_t& found) const;
    void Reset();

private:
    std::uint8_t* mStorage;
    std::size_t mCapacity;
    std::size_t mWrite = 0;
    std::size_t mRead = 0;
};

} // namespace halyard::protocol
