#include "LoggerObject.h"

#include <array>

namespace communication::objects {

namespace {

// The entry's text up to its NUL, which must come within kLogEntryCapacity bytes.
bool ReadLogEntry(halyard::protocol::PayloadReader& reader, QString& logEntry) {
    std::array<char, LoggerObject::kLogEntryCapacity> text{};
    if (!reader.ReadString(text.data(), text.size())) {
        return false;
    }
    logEntry = QString::fromLocal8Bit(text.data());
    return true;
}

} // namespace

LoggerObject::LoggerObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool LoggerObject::ClearLog() {
    return SendEmpty(Log, Operation::Reset);
}
bool LoggerObject::GetFirstLogEntry() {
    return SendEmpty(FirstLogEntry, Operation::Get);
}
bool LoggerObject::GetNextLogEntry() {
    return SendEmpty(NextLogEntry, Operation::Get);
}

// The log model relies on both quirks: a get time-out is also reported as a clear time-out, and
// a refused clear is acknowledged like a successful one.
bool LoggerObject::HandleTimeout(const ProtocolMessage& message) {
    if (message.operation == Operation::Get) {
        emit getTimeout(message.attribute);
        emit clearLogTimeout();
    } else if (message.operation == Operation::Reset) {
        emit clearLogTimeout();
    }
    return true;
}

bool LoggerObject::HandleRefusal(const ProtocolMessage& message) {
    if (message.operation == Operation::Get) {
        emit getNak(message.attribute);
    } else if (message.operation == Operation::Reset) {
        emit ackClearLog();
    }
    return true;
}

bool LoggerObject::HandleResponse(const ProtocolMessage& message) {
    switch (message.operation) {
    case Operation::Get:
        return HandleGetResponse(message);
    case Operation::Reset:
        emit ackClearLog();
        return true;
    default:
        ReplyInvalidOperation(message);
        return true;
    }
}

bool LoggerObject::HandleGetResponse(const ProtocolMessage& message) {
    switch (message.attribute) {
    case FirstLogEntry:
        return EmitDecoded(message, &LoggerObject::getFirstLogEntryResponse,
                           "GetLogEntryResponseHandler", ReadLogEntry);
    case NextLogEntry:
        return EmitDecoded(message, &LoggerObject::getNextLogEntryResponse,
                           "GetLogEntryResponseHandler", ReadLogEntry);
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

} // namespace communication::objects
