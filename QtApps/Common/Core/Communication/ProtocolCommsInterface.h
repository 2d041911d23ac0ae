#pragma once

#include "MetaTypes.h"

#include <QObject>
#include <QString>

namespace communication {

class ProtocolObjectContainer;

/// The link as the pump session sees it: open and close a port, reset the message layer, reach
/// the protocol object proxies, and hear of frames that could not be handled.
class ProtocolCommsInterface : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual bool openPort(const QString& portName) = 0;
    virtual void closePort() = 0;
    /// Forgets every outstanding request (no time-out will be reported for them).
    virtual void clearRequestLog() = 0;
    virtual ProtocolObjectContainer& protocolObjects() = 0;

signals:
    /// A received message was not handled cleanly.
    void protocolError(halyard::protocol::message::Status status);
    /// A frame could not be decoded: "Receive transport error".
    void transportError(QString error);
    /// openPort(`portName`) failed; `reason` says why in plain words, with what fixes it (see
    /// PortOpenFailureText). Emitted on every failed open, so a scan repeats it on each round.
    void portOpenFailed(QString portName, QString reason);
};

} // namespace communication
