#pragma once

#include "RingBuffer.h"
#include "TransportInterface.h"

namespace halyard::protocol {

/// COBS framing. A frame on the line is the COBS body, an end mark 0x01 and a delimiter 0x00;
/// the delimiter that closes one frame opens the next. The sender never writes a leading 0x00,
/// so the owner primes the receive buffer with one 0x00 to find the very first frame.
///
/// All storage belongs to the owner, which keeps it alive as long as the transport.
class CobsTransport final : public TransportInterface {
public:
    CobsTransport(std::uint8_t* ringStorage, std::size_t ringCapacity, std::uint8_t* scratch,
                  std::size_t scratchCapacity);

    /// Needs at least length + 4 bytes of output.
    std::int32_t Encode(std::uint8_t* out, std::size_t outCapacity, const std::uint8_t* message,
                        std::size_t length) override;
    std::size_t DataIn(const std::uint8_t* data, std::size_t length) override;
    /// A full receive buffer that holds no complete frame would stall reception for good: every
    /// later byte is refused. Decode then keeps only the newest 0x00 and what follows it (the one
    /// frame start that more bytes could still complete, the longest valid frame being far shorter
    /// than the buffer), drops everything before it, and returns -1 like any malformed frame.
    /// With no such 0x00 past the oldest byte the whole buffer goes.
    std::int32_t Decode(std::uint8_t* out, std::size_t outCapacity) override;

    std::size_t BufferedBytes() const { return mRing.Count(); }

private:
    bool FindStart(std::size_t& start) const;
    bool FindEnd(std::size_t start, std::size_t& end) const;
    std::int32_t DropUnfinishable();

    RingBuffer mRing;
    std::uint8_t* mScratch;
    std::size_t mScratchCapacity;
};

} // namespace halyard::protocol
