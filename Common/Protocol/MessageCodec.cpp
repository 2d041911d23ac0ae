#include "MessageCodec.h"

namespace halyard::protocol::message {
namespace {

bool CarriesStatus(Type type) {
    return type == Type::AckStatus || type == Type::NakStatus;
}

std::uint8_t WireStatus(const ProtocolMessage& message) {
    return message.status == Status::OutOfRange ? message.statusRaw
                                                : static_cast<std::uint8_t>(message.status);
}

std::uint8_t WireOperation(const ProtocolMessage& message) {
    return message.operation == Operation::OutOfRange
               ? message.operationRaw
               : static_cast<std::uint8_t>(message.operation);
}

} // namespace

SerialiseResult Serialise(const ProtocolMessage& message, std::uint8_t* out, std::size_t capacity,
                          std::size_t& length) {
    if (static_cast<std::uint8_t>(message.type) > kLastType) {
        return SerialiseResult::TypeNotSet;
    }
    std::uint8_t header[6] = {message.id, static_cast<std::uint8_t>(message.type)};
    std::size_t headerLength = 2;
    if (CarriesStatus(message.type)) {
        header[headerLength++] = WireStatus(message);
    } else if (message.type == Type::Request) {
        header[headerLength++] = message.object;
        header[headerLength++] = message.instance;
        header[headerLength++] = message.attribute;
        header[headerLength++] = WireOperation(message);
    }
    // The header goes out before the payload length is looked at, so a buffer too small for
    // the header is reported as such whatever the payload.
    if (headerLength > capacity) {
        return SerialiseResult::BufferTooSmall;
    }
    if (message.payloadLength > kMaxPayloadLength) {
        return SerialiseResult::PayloadTooLong;
    }
    const std::size_t total =
        headerLength + (message.payloadLength > 0 ? 2u + message.payloadLength : 0u);
    if (total > capacity) {
        return SerialiseResult::BufferTooSmall;
    }
    std::memcpy(out, header, headerLength);
    if (message.payloadLength > 0) {
        StoreField(out + headerLength, message.payloadLength, ByteOrder::LittleEndian);
        std::memcpy(out + headerLength + 2, message.payload.data(), message.payloadLength);
    }
    length = total;
    return SerialiseResult::Ok;
}

ParseResult Parse(const std::uint8_t* data, std::size_t length, ProtocolMessage& message) {
    PayloadReader in(data, length);
    message.payloadLength = 0;
    std::uint8_t type = 0;
    if (!in.Read(message.id) || !in.Read(type)) {
        return ParseResult::Truncated;
    }
    if (type > kLastType) {
        message.type = Type::NotSet;
        return ParseResult::InvalidType;
    }
    message.type = static_cast<Type>(type);
    std::uint8_t raw = 0;
    if (CarriesStatus(message.type)) {
        if (!in.Read(raw)) {
            return ParseResult::Truncated;
        }
        message.SetStatusRaw(raw);
    } else if (message.type == Type::Request) {
        if (!in.Read(message.object) || !in.Read(message.instance) || !in.Read(message.attribute) ||
            !in.Read(raw)) {
            return ParseResult::Truncated;
        }
        message.SetOperationRaw(raw);
    }
    if (in.Remaining() == 0) {
        return ParseResult::Ok;
    }
    std::uint16_t payloadLength = 0;
    if (!in.Read(payloadLength)) {
        return ParseResult::Truncated;
    }
    if (in.Remaining() != payloadLength) {
        return ParseResult::LengthMismatch;
    }
    if (payloadLength > kMaxPayloadLength) {
        return ParseResult::PayloadTooLong;
    }
    in.ReadBytes(message.payload.data(), payloadLength);
    message.payloadLength = payloadLength;
    return ParseResult::Ok;
}

} // namespace halyard::protocol::message
