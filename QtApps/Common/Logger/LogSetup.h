#pragma once

#include <QString>

namespace logger {

/// The layout of every line unless a properties file says otherwise: time, level, thread name,
/// then "source/path:line function - message".
inline constexpr const char* kDefaultPattern = "%d{yyyy-MM-dd HH:mm:ss.SSS} %-5p [%T] %m%n";

/// Logging before (or without) a properties file: INFO and above to standard error and to a
/// rolling file "<fileBaseName>.log" in `folder` (1 MB, three backups). An empty folder logs to
/// standard error only. Replaces any earlier configuration.
void ConfigureDefaults(const QString& folder, const QString& fileBaseName);

/// Reads a log4j-style properties file and re-reads it whenever it changes. A file with errors
/// leaves what it could read in place; log4cxx reports the errors on standard error.
void ConfigureFromFile(const QString& path);

/// Sends Qt's own messages (qDebug, qWarning, QML errors...) into the same log.
void InstallQtMessageHandler();

} // namespace logger
