#pragma once

#include <QString>

namespace logger {

/// The layout of every line unless a properties file says otherwise: time, level, thread name,
/// then "source/path:line function - message".
inline constexpr const char* kDefaultPattern = "%d{yyyy-MM-dd HH:mm:ss.SSS} %-5p [%T] %m%n";

/// Where log lines may appear besides the log file.
enum class ConsoleEcho {
    /// Standard error by default; a properties file may say otherwise (the application).
    AsConfigured,
    /// Standard error only, whatever a properties file says: for a program whose standard output
    /// is its result.
    StandardError,
    /// Nowhere but the files, whatever a properties file says.
    Off,
};

/// Logging before (or without) a properties file: INFO and above to a rolling file
/// "<executable name>.log" (1 MB, three backups) in the platform's application data folder, and
/// to standard error unless `echo` is Off. Replaces any earlier configuration.
void ConfigureDefaults(ConsoleEcho echo = ConsoleEcho::AsConfigured);

/// Replaces the configuration with a log4j-style properties file. log4cxx reports errors in the
/// file on standard error and keeps what it could read. Returns false when the file leaves the
/// root logger with nowhere to write, so that the caller can fall back.
bool ConfigureFromFile(const QString& path);

/// Holds the configuration to `echo`: with Off every console appender of every logger is removed,
/// with StandardError each one that writes to standard output writes to standard error instead.
/// AsConfigured changes nothing.
void ApplyConsoleEcho(ConsoleEcho echo);

/// Sends Qt's own messages (qDebug, qWarning, QML errors...) into the same log.
void InstallQtMessageHandler();

} // namespace logger
