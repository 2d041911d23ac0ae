#pragma once

#include "ProtocolProxy.h"

#include <QObject>
#include <QString>

namespace communication::objects {

/// Proxy of the pump's event log (object 7, instance 1): read the log one entry at a time (the
/// first, then each next) and clear it.
///
/// A get time-out is also reported as a clear time-out, and a refused clear is acknowledged
/// like a successful one: the log model relies on both.
class LoggerObject : public QObject, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 7;
    static constexpr uint8_t kInstance = 1;
    enum Attribute : uint8_t { Log = 0, FirstLogEntry = 1, NextLogEntry = 2 };
    /// Longest entry text plus its NUL.
    static constexpr std::size_t kLogEntryCapacity = 140;

    explicit LoggerObject(halyard::protocol::ProtocolInterface& protocol,
                          QObject* parent = nullptr);

    bool ClearLog();
    bool GetFirstLogEntry();
    bool GetNextLogEntry();

signals:
    void getFirstLogEntryResponse(QString logEntry);
    void getNextLogEntryResponse(QString logEntry);
    void getNak(uint8_t attribute);
    void getTimeout(uint8_t attribute);
    void ackClearLog();
    void clearLogTimeout();

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;

private:
    bool HandleGetResponse(const ProtocolMessage& message);
};

} // namespace communication::objects
