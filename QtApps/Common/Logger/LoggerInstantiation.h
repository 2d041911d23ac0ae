#pragma once

#include "LogSetup.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>

namespace logger {

/// Sets the logging up for the application: exports "APPNAME" for the properties file, reads
/// "log4qt.properties" beside the executable if there is one and reads it again whenever it
/// changes, and logs the start and the stop of the program.
///
/// `echo` holds every configuration, the file's included, to where the program lets log lines
/// appear (see ConsoleEcho).
///
/// The file is watched here with the platform's change notification rather than by log4cxx's own
/// polling thread, which can deadlock the process at exit.
class LoggerInstantiation final : public QObject {
    Q_OBJECT

public:
    static constexpr const char* kPropertiesFileName = "log4qt.properties";

    explicit LoggerInstantiation(const QString& applicationName,
                                 ConsoleEcho echo = ConsoleEcho::AsConfigured,
                                 QObject* parent = nullptr);

public slots:
    void onApplicationExit();

private:
    void LogStartup();
    /// Reads the properties file, or the defaults if it gives the root logger nowhere to write.
    void Configure(const char* function);
    void onPropertiesChanged();

    QString mApplicationName;
    ConsoleEcho mEcho;
    QString mPropertiesPath;
    QFileSystemWatcher mWatcher;
};

} // namespace logger
