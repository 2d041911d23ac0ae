#pragma once

#include <QByteArray>
#include <QString>

namespace communication {

/// What the link needs of a serial device. Kept apart from the port class so that the transmit
/// queue depends on these few operations only.
class QtDeviceInterface {
public:
    virtual ~QtDeviceInterface() = default;

    /// Returns the count written, or -1 (for instance when the port is not open).
    virtual qint64 write(const char* data, qint64 length) = 0;
    virtual bool flush() = 0;
    virtual bool waitForBytesWritten(int milliseconds) = 0;
    virtual QByteArray readAll() = 0;
    /// Opens `portName` at 115200 baud, 8N1, no flow control, for reading and writing.
    virtual bool openPort(const QString& portName) = 0;
    virtual void closePort() = 0;

protected:
    QtDeviceInterface() = default;
    QtDeviceInterface(const QtDeviceInterface&) = default;
    QtDeviceInterface& operator=(const QtDeviceInterface&) = default;
};

} // namespace communication
