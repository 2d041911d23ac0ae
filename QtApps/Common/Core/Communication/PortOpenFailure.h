#pragma once

#include <QSerialPort>
#include <QString>

namespace communication {

/// Why a serial port could not be opened, in the terms a user can act on.
enum class PortOpenFailure {
    NotFound,     ///< no such device (unplugged, or a wrong name)
    NoPermission, ///< the user may not use the device (on Linux: not in the "dialout" group)
    InUse,        ///< another program holds the port
    Other,
};

/// Sorts an open error of QSerialPort. Qt reports both a device the user may not open and one
/// that another program has locked as PermissionError; `deviceAccessible` (see
/// IsDeviceAccessible) tells them apart.
PortOpenFailure ClassifyPortOpenFailure(QSerialPort::SerialPortError error, bool deviceAccessible);

/// Whether the user may read and write the device file of `portName`. Always true on Windows,
/// where a COM port has no file permissions and a refused open means the port is in use.
bool IsDeviceAccessible(const QString& portName);

/// The failure in plain words, with what fixes it: for NoPermission the command that adds the
/// user to the "dialout" group. `detail` is the port's own error text, shown for Other.
QString PortOpenFailureText(PortOpenFailure failure, const QString& portName,
                            const QString& detail);

} // namespace communication
