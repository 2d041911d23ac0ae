#pragma once

#include "QtDeviceInterface.h"

#include <QSerialPort>

namespace wrappers {

/// The serial port as the link sees it.
class QtSerialWrapper final : public QSerialPort, public communication::QtDeviceInterface {
    Q_OBJECT

public:
    explicit QtSerialWrapper(QObject* parent = nullptr);

    qint64 write(const char* data, qint64 length) override;
    bool flush() override;
    bool waitForBytesWritten(int milliseconds) override;
    QByteArray readAll() override;
    bool openPort(const QString& portName) override;
    void closePort() override;
};

} // namespace wrappers
