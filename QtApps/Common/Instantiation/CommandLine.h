#pragma once

#include <QString>
#include <QStringList>

class QCoreApplication;

namespace common {

/// The environment variable that names the ports to scan, separated by the platform's list
/// separator (":" on Unix, ";" on Windows).
inline constexpr const char* kPortsVariable = "BRACKWATER_LINK_PORTS";

/// What the command line chooses.
struct CommandLineOptions {
    /// The serial ports the session scans, in order: every `--port NAME` given, else those of
    /// BRACKWATER_LINK_PORTS, else none (meaning every port the platform lists).
    QStringList portNames;
    /// `--record FILE`: record this run's session into FILE; empty for none.
    QString recordPath;
};

/// Reads the options. `--help` and `--version` print and exit as in any Qt command-line
/// program.
CommandLineOptions ParseCommandLine(const QCoreApplication& application);

/// Splits the variable's value; empty names are dropped.
QStringList PortsFromVariable(const QString& value);

/// The ports to scan when `named` were given with `--port`: those, else those of
/// BRACKWATER_LINK_PORTS, else none (every port the platform lists).
QStringList ChosenPorts(const QStringList& named);

} // namespace common
