#pragma once

#include <cstdint>

namespace halyard::protocol::message {

/// Marks a received type, operation or status byte outside its enumeration; the byte itself is
/// kept in the message's raw field.
inline constexpr std::uint8_t kOutOfRange = 128;

enum class Type : std::uint8_t {
    Request = 0,
    AckStatus = 1,
    Nak = 2,
    NakStatus = 3,
    NotSet = 0xFF,
};

enum class Operation : std::uint8_t {
    Get = 0,
    GetAll = 1,
    Set = 2,
    SetAll = 3,
    SetDef = 4,
    Reset = 5,
    Sub = 6,
    Unsub = 7,
    Update = 8,
    Ack = 9,
    Verify = 10,
    Start = 11,
    Stop = 12,
    OutOfRange = kOutOfRange,
};

enum class Status : std::uint8_t {
    Success = 0,
    Failed = 1,
    InvalidObject = 2,
    InvalidInstance = 3,
    InvalidAttribute = 4,
    InvalidOperation = 5,
    InvalidMessage = 6,
    InvalidMessageId = 7,
    InvalidMessageData = 8,
    NakReceived = 9,
    RequestAckTimeout = 10,
    MaxSubscriptionsExceeded = 11,
    NoSubscription = 12,
    InvalidSubscribeRequest = 13,
    OutOfRange = kOutOfRange,
};

inline constexpr std::uint8_t kLastType = 3;
inline constexpr std::uint8_t kLastOperation = 12;
inline constexpr std::uint8_t kLastStatus = 13;

/// In-range form of a received byte: the value itself, or kOutOfRange past the last one.
constexpr Operation ToOperation(std::uint8_t raw) {
    return raw <= kLastOperation ? static_cast<Operation>(raw) : Operation::OutOfRange;
}
constexpr Status ToStatus(std::uint8_t raw) {
    return raw <= kLastStatus ? static_cast<Status>(raw) : Status::OutOfRange;
}

/// Texts for logs. Every value has one; an unknown value gives "OutOfRange".
const char* TypeName(Type type);
const char* OperationName(Operation operation);
const char* StatusName(Status status);
const char* StatusShortName(Status status);

} // namespace halyard::protocol::message
