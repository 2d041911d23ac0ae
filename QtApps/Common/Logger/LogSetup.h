#pragma once

#include <QString>

namespace logger {

/// The layout of every line unless a properties file says otherwise: time, level, thread name,
/// then "source/path:line function - message".
inline constexpr const char* kDefaultPattern = "%d{yyyy-MM-dd HH:mm:ss.SSS} %-5p [%T] %m%n";

/// Logging before (or without) a properties file: INFO and above to standard error and to a
/// rolling file "<executable name>.log" (1 MB, three backups) in the platform's application data
/// folder. Replaces any earlier configuration.
void ConfigureDefaults();

/// Replaces the configuration with a log4j-style properties file. log4cxx reports errors in the
/// file on standard error and keeps what it could read. Returns false when the file leaves the
/// root logger with nowhere to write, so that the caller can fall back.
bool ConfigureFromFile(const QString& path);

/// Sends Qt's own messages (qDebug, qWarning, QML errors...) into the same log.
void InstallQtMessageHandler();

} // namespace logger
