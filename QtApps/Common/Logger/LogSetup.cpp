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

} // namespace

void ConfigureDefaults() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const QString fileBaseName =
        QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
    log4cxx::LogManager::resetConfiguration();
    const log4cxx::LoggerPtr root = log4cxx::Logger::getRootLogger();
    root->setLevel(log4cxx::Level::getInfo());
    const auto layout = std::make_shared<log4cxx::PatternLayout>(kDefaultPattern);
    log4cxx::helpers::Pool pool;

    const auto console = std::make_shared<log4cxx::ConsoleAppender>(
        layout, log4cxx::ConsoleAppender::getSystemErr());
    console->activateOptions(pool);
    root->addAppender(console);

    if (folder.isEmpty() || !QDir().mkpath(folder)) {
        return;
    }
    const auto file = std::make_shared<log4cxx::rolling::RollingFileAppender>();
    file->setLayout(layout);
    file->setFile(QDir(folder).filePath(fileBaseName + QStringLiteral(".log")).toStdString());
    file->setAppend(true);
    file->setMaximumFileSize(kMaxFileBytes);
    file->setMaxBackupIndex(kBackups);
    file->activateOptions(pool);
    root->addAppender(file);
}

bool ConfigureFromFile(const QString& path) {
    log4cxx::LogManager::resetConfiguration();
    log4cxx::PropertyConfigurator::configure(log4cxx::File(path.toStdString()));
    return !log4cxx::Logger::getRootLogger()->getAllAppenders().empty();
}

void InstallQtMessageHandler() {
    qInstallMessageHandler(QtMessageToLog);
}

} // namespace logger
