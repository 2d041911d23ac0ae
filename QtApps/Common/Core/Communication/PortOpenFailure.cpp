#include "PortOpenFailure.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace communication {

PortOpenFailure ClassifyPortOpenFailure(QSerialPort::SerialPortError error, bool deviceAccessible) {
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return PortOpenFailure::NotFound;
    case QSerialPort::PermissionError:
        return deviceAccessible ? PortOpenFailure::InUse : PortOpenFailure::NoPermission;
    default:
        return PortOpenFailure::Other;
    }
}

bool IsDeviceAccessible(const QString& portName) {
#ifdef Q_OS_WIN
    Q_UNUSED(portName)
    return true;
#else
    // Qt takes a path as it stands and any other name ("ttyUSB0", "pts/3") as one under /dev.
    const bool isPath = portName.startsWith(QLatin1Char('/')) ||
                        portName.startsWith(QLatin1String("./")) ||
                        portName.startsWith(QLatin1String("../"));
    const QString location = isPath ? portName : QStringLiteral("/dev/") + portName;
    const QFileInfo device(location);
    return !device.exists() || (device.isReadable() && device.isWritable());
#endif
}

QString PortOpenFailureText(PortOpenFailure failure, const QString& portName,
                            const QString& detail) {
    switch (failure) {
    case PortOpenFailure::NotFound:
        return QCoreApplication::translate("PortOpenFailure", "Cannot open %1: there is no such "
                                                              "port. Is the pump plugged in?")
            .arg(portName);
    case PortOpenFailure::NoPermission:
        return QCoreApplication::translate(
                   "PortOpenFailure",
                   "Cannot open %1: permission denied. Your user may not use serial ports. Add it "
                   "to the \"dialout\" group with\n    sudo usermod -aG dialout $USER\nthen log "
                   "out and in again.")
            .arg(portName);
    case PortOpenFailure::InUse:
        return QCoreApplication::translate("PortOpenFailure",
                                           "Cannot open %1: another program is using it.")
            .arg(portName);
    case PortOpenFailure::Other:
        break;
    }
    return QCoreApplication::translate("PortOpenFailure", "Cannot open %1: %2")
        .arg(portName, detail);
}

} // namespace communication
