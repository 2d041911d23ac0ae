#include "LoggerInstantiation.h"

#include "Log.h"
#include "LogSetup.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>

namespace logger {

LoggerInstantiation::LoggerInstantiation(const QString& applicationName, QObject* parent)
    : QObject(parent)
    , mApplicationName(applicationName) {
    qputenv("APPNAME", applicationName.toUtf8());
    const QString properties = QDir(QCoreApplication::applicationDirPath())
                                   .filePath(QString::fromLatin1(kPropertiesFileName));
    if (QFileInfo::exists(properties)) {
        ConfigureFromFile(properties);
    }
    LogStartup();
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
