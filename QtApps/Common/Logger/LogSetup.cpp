#include "LogSetup.h"

#include "Log.h"

#include <log4cxx/consoleappender.h>
#include <log4cxx/helpers/pool.h>
#include <log4cxx/logmanager.h>
#include <log4cxx/patternlayout.h>
#include <log4cxx/propertyconfigurator.h>
#include <log4cxx/rolling/rollingfileappender.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace logger {

namespace {

constexpr std::size_t kMaxFileBytes = std::size_t{1024} * 1024;
constexpr int kBackups = 3;

void QtMessageToLog(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    Level level = Level::Info;
    switch (type) {
    case QtDebugMsg:
        level = Level::Debug;
        break;
    case QtInfoMsg:
        level = Level::Info;
        break;
    case QtWarningMsg:
        level = Level::Warn;
        break;
    case QtCriticalMsg:
    case QtFatalMsg:
        level = Level::Error;
        break;
    }
    // Qt's messages carry a category rather than one of our source paths.
    const char* category = context.category != nullptr ? context.category : "qt";
    write(level, Site::foreign("Qt", context.line, category), message);
}

// The rolling "<executable name>.log" in the application data folder, if that can be made.
void AddDefaultFile(const log4cxx::LoggerPtr& logger) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (folder.isEmpty() || !QDir().mkpath(folder)) {
        return;
    }
    const QString fileBaseName =
        QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
    log4cxx::helpers::Pool pool;
    const auto file = std::make_shared<log4cxx::rolling::RollingFileAppender>();
    file->setLayout(std::make_shared<log4cxx::PatternLayout>(kDefaultPattern));
    file->setFile(QDir(folder).filePath(fileBaseName + QStringLiteral(".log")).toStdString());
    file->setAppend(true);
    file->setMaximumFileSize(kMaxFileBytes);
    file->setMaxBackupIndex(kBackups);
    file->activateOptions(pool);
    logger->addAppender(file);
}

} // namespace

void ConfigureDefaults(ConsoleEcho echo) {
    log4cxx::LogManager::resetConfiguration();
    const log4cxx::LoggerPtr root = log4cxx::Logger::getRootLogger();
    root->setLevel(log4cxx::Level::getInfo());
    const auto layout = std::make_shared<log4cxx::PatternLayout>(kDefaultPattern);
    log4cxx::helpers::Pool pool;
    if (echo != ConsoleEcho::Off) {
        const auto console = std::make_shared<log4cxx::ConsoleAppender>(
            layout, log4cxx::ConsoleAppender::getSystemErr());
        console->activateOptions(pool);
        root->addAppender(console);
    }
    AddDefaultFile(root);
}

bool ConfigureFromFile(const QString& path) {
    log4cxx::LogManager::resetConfiguration();
    log4cxx::PropertyConfigurator::configure(log4cxx::File(path.toStdString()));
    return !log4cxx::Logger::getRootLogger()->getAllAppenders().empty();
}

void ApplyConsoleEcho(ConsoleEcho echo) {
    if (echo == ConsoleEcho::AsConfigured) {
        return;
    }
    log4cxx::LoggerList loggers = log4cxx::LogManager::getCurrentLoggers();
    loggers.push_back(log4cxx::Logger::getRootLogger());
    log4cxx::helpers::Pool pool;
    for (const log4cxx::LoggerPtr& logger : loggers) {
        for (const log4cxx::AppenderPtr& appender : logger->getAllAppenders()) {
            const auto console = std::dynamic_pointer_cast<log4cxx::ConsoleAppender>(appender);
            if (!console) {
                continue;
            }
            if (echo == ConsoleEcho::Off) {
                logger->removeAppender(appender);
            } else if (console->getTarget() != log4cxx::ConsoleAppender::getSystemErr()) {
                console->setTarget(log4cxx::ConsoleAppender::getSystemErr());
                console->activateOptions(pool);
            }
        }
    }
    // A configuration that only echoed to the console would now write nowhere, and log4cxx would
    // complain of that on standard error: the lines go to the default file instead.
    const log4cxx::LoggerPtr root = log4cxx::Logger::getRootLogger();
    if (root->getAllAppenders().empty()) {
        AddDefaultFile(root);
    }
}

void InstallQtMessageHandler() {
    qInstallMessageHandler(QtMessageToLog);
}

} // namespace logger
