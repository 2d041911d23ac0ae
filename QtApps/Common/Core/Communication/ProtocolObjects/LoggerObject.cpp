#include "LoggerObject.h"

#include "ProxyLog.h"

#include <array>

namespace communication::objects {

LoggerObject::LoggerObject(halyard::protocol::ProtocolInterface& protocol, QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance, halyard::SourcePath(__FILE__)) {}

bool LoggerObject::ClearLog() {
    return SendEmpty(Log, Operation::Reset);
}
bool LoggerObject::GetFirstLogEntry() {
    return SendEmpty(FirstLogEntry, Operation::Get);
}
bool LoggerObject::GetNextLogEntry() {
    return SendEmpty(NextLogEntry, Operation::Get);
}

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
    if (message.attribute != FirstLogEntry && message.attribute != NextLogEntry) {
        ReplyInvalidAttribute(message);
        return true;
    }
    std::array<char, kLogEntryCapacity> text{};
    halyard::protocol::PayloadReader reader = message.Reader();
    if (!reader.ReadString(text.data(), text.size())) {
        BWL_LOG_READ_FAILURE("GetLogEntryResponseHandler");
        return false;
    }
    const QString logEntry = QString::fromLocal8Bit(text.data());
    if (message.attribute == FirstLogEntry) {
        emit getFirstLogEntryResponse(logEntry);
    } else {
        emit getNextLogEntryResponse(logEntry);
    }
    return true;
}

} // namespace communication::objects
