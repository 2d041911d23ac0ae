#include "LoggerInstantiation.h"

#include "Log.h"
#include "LogSetup.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>

namespace logger {

LoggerInstantiation::LoggerInstantiation(const QString& applicationName, ConsoleEcho echo,
                                         QObject* parent)
    : QObject(parent)
    , mApplicationName(applicationName)
    , mEcho(echo)
    , mPropertiesPath(QDir(QCoreApplication::applicationDirPath())
                          .filePath(QString::fromLatin1(kPropertiesFileName))) {
    qputenv("APPNAME", applicationName.toUtf8());
    const bool fromFile = QFileInfo::exists(mPropertiesPath);
    if (fromFile) {
        mWatcher.addPath(mPropertiesPath);
        connect(&mWatcher, &QFileSystemWatcher::fileChanged, this,
                &LoggerInstantiation::onPropertiesChanged);
        Configure("LoggerInstantiation");
    }
    LogStartup();
}

void LoggerInstantiation::Configure(const char* function) {
    if (!ConfigureFromFile(mPropertiesPath)) {
        ConfigureDefaults(mEcho);
        BWL_LOG_WARN(function, QStringLiteral("%1 gives the root logger no appender; logging "
                                              "with the defaults instead")
                                   .arg(mPropertiesPath));
    }
    ApplyConsoleEcho(mEcho);
}

// Editors often replace a file rather than rewrite it, which ends its watch: watch it again.
// A file that is gone leaves the last configuration in place.
void LoggerInstantiation::onPropertiesChanged() {
    if (!QFileInfo::exists(mPropertiesPath)) {
        return;
    }
    if (!mWatcher.files().contains(mPropertiesPath)) {
        mWatcher.addPath(mPropertiesPath);
    }
    Configure("onPropertiesChanged");
    BWL_LOG_INFO("onPropertiesChanged",
                 QStringLiteral("Logging configuration read again from %1").arg(mPropertiesPath));
}

void LoggerInstantiation::LogStartup() {
    BWL_LOG_INFO("LogStartup", mApplicationName + QStringLiteral(" starting..."));
    BWL_LOG_INFO("LogStartup",
                 QStringLiteral("OS: %1, Path: %5")
                     .arg(QSysInfo::prettyProductName(), QCoreApplication::applicationFilePath()));
}

void LoggerInstantiation::onApplicationExit() {
    BWL_LOG_INFO("onApplicationExit", mApplicationName + QStringLiteral(" stopped."));
}

} // namespace logger
