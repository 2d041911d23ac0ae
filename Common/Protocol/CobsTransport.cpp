#include "CobsTransport.h"

#include "Cobs.h"

#include <cstring>

namespace halyard::protocol {
namespace {
constexpr std::uint8_t kDelimiter = 0x00;
constexpr std::uint8_t kEndMark = 0x01;
constexpr std::size_t kFrameTrailer = 2; // end mark and delimiter
} // namespace

CobsTransport::CobsTransport(std::uint8_t* ringStorage, std::size_t ringCapacity,
                             std::uint8_t* scratch, std::size_t scratchCapacity)
    : mRing(ringStorage, ringCapacity)
    , mScratch(scratch)
    , mScratchCapacity(scratchCapacity) {}

std::int32_t CobsTransport::Encode(std::uint8_t* out, std::size_t outCapacity,
                                   const std::uint8_t* message, std::size_t length) {
    if (length == 0) {
        return 0;
    }
    if (outCapacity < length + 3) {
        return -1;
    }
    const std::size_t bodyCapacity = outCapacity - kFrameTrailer;
    if (bodyCapacity < length + 2) {
        return -1;
    }
    const std::int32_t bodyLength = cobs::Encode(out, bodyCapacity, message, length);
    if (bodyLength < 0) {
        return -1;
    }
    out[bodyLength] = kEndMark;
    out[bodyLength + 1] = kDelimiter;
    return bodyLength + static_cast<std::int32_t>(kFrameTrailer);
}

std::size_t CobsTransport::DataIn(const std::uint8_t* data, std::size_t length) {
    return mRing.Write(data, length);
}

bool CobsTransport::FindStart(std::size_t& start) const {
    std::size_t from = 0;
    std::size_t zero = 0;
    while (mRing.FindByteFrom(from, kDelimiter, zero)) {
        std::uint8_t next = 0;
        if (!mRing.PeekAt(zero + 1, next)) {
            return false;
        }
        if (next != kDelimiter) {
            start = zero;
            return true;
        }
        from = zero + 1;
    }
    return false;
}

bool CobsTransport::FindEnd(std::size_t start, std::size_t& end) const {
    std::size_t from = start + 1;
    std::size_t zero = 0;
    while (mRing.FindByteFrom(from, kDelimiter, zero)) {
        std::uint8_t before = 0;
        mRing.PeekAt(zero - 1, before);
        if (before == kEndMark) {
            end = zero;
            return true;
        }
        from = zero + 1;
    }
    return false;
}

std::int32_t CobsTransport::DropUnfinishable() {
    if (mRing.Free() != 0) {
        return 0;
    }
    // Dropping only the oldest frame start would leave the buffer nearly full of bytes that can
    // never form a frame, and the next reads would be refused in turn.
    std::size_t keepFrom = mRing.Count();
    std::size_t zero = 0;
    for (std::size_t from = 1; mRing.FindByteFrom(from, kDelimiter, zero); from = zero + 1) {
        keepFrom = zero;
    }
    mRing.Discard(keepFrom);
    return -1;
}

std::int32_t CobsTransport::Decode(std::uint8_t* out, std::size_t outCapacity) {
    if (mRing.Count() < 2) {
        return 0;
    }
    std::size_t start = 0;
    if (!FindStart(start)) {
        return DropUnfinishable();
    }
    std::size_t end = 0;
    if (!FindEnd(start, end)) {
        return DropUnfinishable();
    }
    mRing.Discard(start + 1);

    const std::size_t bodyLength = end - start - kFrameTrailer;
    if (bodyLength > mScratchCapacity) {
        return -1;
    }
    std::memset(mScratch, 0, mScratchCapacity);
    mRing.Read(mScratch, bodyLength);
    const std::int32_t decoded = cobs::Decode(out, outCapacity, mScratch, bodyLength);
    mRing.Discard(1); // the end mark; the closing delimiter opens the next frame
    return decoded < 0 ? -1 : decoded;
}

} // namespace halyard::protocol
