#pragma once

#include "RingBuffer.h"
#include "TransportInterface.h"

namespace halyard::protocol {

/// COBS framing. A frame on the line is the COBS body, an end mark 0x01 and a delimiter 0x00;
/// the delimiter that closes one frame opens the next. The sender never writes a leading 0x00,
/// so the owner primes the receive buffer with one 0x00 to find the very first frame.
///
/// All storage belongs to the owner, which keeps it alive as long as the transport.
class CobsTransport final : public TransportInterface
{
public:
    CobsTransport(std::uint8_t* ringStorage, std::size_t ringCapacity, std::uint8_t* scratch,
                  std::size_t scratchCapacity);

    /// Needs at least length + 4 bytes of output.
    std::int32_t Encode(std::uint8_t* out, std::size_t outCapacity, const std::uint8_t* message,
                        std::size_t length) override;
    std::size_t DataIn(const std::uint8_t* data, std::size_t length) override;
    /// A full receive buffer that holds no complete frame can never complete one (the longest
    /// valid frame is far shorter than the buffer). Rather than stall reception for good, Decode
    /// then drops the frame in progress (or, with no frame start, all but the newest byte) and
    /// returns -1 like any malformed frame.
    std::int32_t Decode(std::uint8_t* out, std::size_t outCapacity) override;

    std::size_t BufferedBytes() const { return mRing.Count(); }

private:
    bool FindStart(std::size_t& start) const;
    bool FindEnd(std::size_t start, std::size_t& end) const;
    std::int32_t DropUnfinishable(bool haveStart, std::size_t start);

    RingBuffer mRing;
    std::uint8_t* mScratch;
    std::size_t mScratchCapacity;
};

} // namespace halyard::protocol
