#pragma once

#include "ProtocolMessage.h"

namespace halyard::protocol::message {

/// Wire form of a message (all fields little-endian):
///   id, type, then status (AckStatus, NakStatus) or object, instance, attribute, operation
///   (Request); then, only when there is a payload, its u16 length and the payload bytes.
enum class SerialiseResult : std::uint8_t {
    Ok = 0,
    BufferTooSmall = 1,
    TypeNotSet = 2,
    PayloadTooLong = 4,
};

enum class ParseResult : std::uint8_t {
    Ok = 0,
    Truncated = 1,
    InvalidType = 2,
    PayloadTooLong = 3,
    LengthMismatch = 4,
};

/// Writes `message` to `out`; on Ok `length` holds the byte count.
SerialiseResult Serialise(const ProtocolMessage& message, std::uint8_t* out, std::size_t capacity,
                          std::size_t& length);

/// Reads one frame's bytes into `message`. The payload length field must account for exactly the
/// bytes that follow it. A type byte past NakStatus leaves the type NotSet.
ParseResult Parse(const std::uint8_t* data, std::size_t length, ProtocolMessage& message);

} // namespace halyard::protocol::message
