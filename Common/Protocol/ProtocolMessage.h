#pragma once

#include "MessageTypes.h"
#include "PayloadReader.h"
#include "PayloadWriter.h"

#include <array>

namespace halyard::protocol {

inline constexpr std::size_t kMaxPayloadLength = 1280;

/// One message of the link, in memory. Operation and status keep both their in-range form
/// (kOutOfRange for a byte past the enumeration) and the byte itself, so that an unknown value
/// survives a round trip unchanged.
struct ProtocolMessage {
    std::uint8_t id = 0;
    message::Type type = message::Type::NotSet;
    std::uint8_t object = 0;
    std::uint8_t instance = 0;
    std::uint8_t attribute = 0;
    message::Operation operation = message::Operation::Get;
    std::uint8_t operationRaw = 0;
    message::Status status = message::Status::Success;
    std::uint8_t statusRaw = 0;
    std::uint16_t payloadLength = 0;
    std::array<std::uint8_t, kMaxPayloadLength> payload{};

    void SetOperation(message::Operation value);
    void SetOperationRaw(std::uint8_t raw);
    void SetStatus(message::Status value);
    void SetStatusRaw(std::uint8_t raw);

    /// Cursors over the payload. The reader covers payloadLength bytes; the writer starts at the
    /// beginning and sets payloadLength when closed.
    PayloadReader Reader() const { return PayloadReader(payload.data(), payloadLength); }
    PayloadWriter Writer() { return PayloadWriter(*this); }
};

} // namespace halyard::protocol
