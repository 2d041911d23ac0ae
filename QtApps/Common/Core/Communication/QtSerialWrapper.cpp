#include "QtSerialWrapper.h"

namespace wrappers {

static constexpr qint32 kBaudRate = 115200;

QtSerialWrapper::QtSerialWrapper(QObject* parent) : QSerialPort(parent) {}

qint64 QtSerialWrapper::write(const char* data, qint64 length) {
    return QSerialPort::write(data, length);
}

bool QtSerialWrapper::flush() {
    return QSerialPort::flush();
}

bool QtSerialWrapper::waitForBytesWritten(int milliseconds) {
    return QSerialPort::waitForBytesWritten(milliseconds);
}

QByteArray QtSerialWrapper::readAll() {
    return QSerialPort::readAll();
}

// Data bits, parity, stop bits and flow control keep the port class's defaults (8N1, none).
bool QtSerialWrapper::openPort(const QString& portName) {
    setPortName(portName);
    setBaudRate(kBaudRate, QSerialPort::AllDirections);
    return open(QIODevice::ReadWrite);
}

void QtSerialWrapper::closePort() {
    if (isOpen()) {
        close();
    }
}

} // namespace wrappers
