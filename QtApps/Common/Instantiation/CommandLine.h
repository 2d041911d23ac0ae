#pragma once

#include <QStringList>

class QCoreApplication;

namespace common {

/// The environment variable that names the ports to scan, separated by the platform's list
/// separator (":" on Unix, ";" on Windows).
inline constexpr const char* kPortsVariable = "BRACKWATER_LINK_PORTS";

/// The serial ports the session scans, in order: every `--port NAME` given, else those of
/// BRACKWATER_LINK_PORTS, else none (meaning every port the platform lists). `--help` and
/// `--version` print and exit as in any Qt command-line program.
QStringList PortsFromCommandLine(const QCoreApplication& application);

/// Splits the variable's value; empty names are dropped.
QStringList PortsFromVariable(const QString& value);

/// The ports to scan when `named` were given with `--port`: those, else those of
/// BRACKWATER_LINK_PORTS, else none (every port the platform lists).
QStringList ChosenPorts(const QStringList& named);

} // namespace common
