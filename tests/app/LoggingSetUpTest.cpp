// Logging set-up: defaults, a properties file beside the executable, a broken one, Qt's messages.
#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Logger/LogSetup.h"
#include "QtApps/Common/Logger/LoggerInstantiation.h"
#include "tests/support/LogCapture.h"

#include <log4cxx/logger.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString propertiesPath() {
    return QDir(QCoreApplication::applicationDirPath())
        .filePath(QString::fromLatin1(logger::LoggerInstantiation::kPropertiesFileName));
}

void writeProperties(const QByteArray& text) {
    QFile file(propertiesPath());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text);
}

// A helper that logs for its caller, as the session's retry rule and the proxies' payload checks
// do: the line is the caller's.
void logForCaller(const logger::Site& site) {
    logger::write(logger::Level::Info, site, QStringLiteral("for the caller"));
}

} // namespace

class LoggingSetUpTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() {
        QFile::remove(propertiesPath());
        logger::ConfigureDefaults();
    }

    void withoutPropertiesFile_defaultsLogStartAndStop() {
        QVERIFY(!QFile::exists(propertiesPath()));
        logger::ConfigureDefaults();
        testsupport::LogCapture capture;
        logger::LoggerInstantiation instantiation(QStringLiteral("Brackwater Link"));
        instantiation.onApplicationExit();
        QVERIFY(capture.contains(QStringLiteral("INFO QtApps/Common/Logger/LoggerInstantiation:")));
        QVERIFY(capture.contains(QStringLiteral("LogStartup - Brackwater Link starting...")));
        QVERIFY(capture.contains(QStringLiteral("LogStartup - OS: ")));
        QVERIFY(capture.contains(QStringLiteral("onApplicationExit - Brackwater Link stopped.")));
        QCOMPARE(qgetenv("APPNAME"), QByteArray("Brackwater Link"));
    }

    void logLines_nameTheCodeThatWroteThem() {
        testsupport::LogCapture capture;
        const int line = __LINE__ + 1;
        BWL_LOG_WARN("directLabel", QStringLiteral("direct"));
        logForCaller("callerLabel");
        QCOMPARE(
            capture.lines(),
            QStringList(
                {QStringLiteral("WARN tests/app/LoggingSetUpTest:%1 directLabel - direct")
                     .arg(line),
                 QStringLiteral("INFO tests/app/LoggingSetUpTest:%1 callerLabel - for the caller")
                     .arg(line + 1)}));
    }

    void propertiesFile_configuresLoggingWithAppName() {
        QTemporaryDir folder;
        QVERIFY(folder.isValid());
        writeProperties("log4j.rootLogger=INFO, file\n"
                        "log4j.appender.file=org.apache.log4j.FileAppender\n"
                        "log4j.appender.file.File=" +
                        folder.path().toUtf8() +
                        "/${APPNAME}.log\n"
                        "log4j.appender.file.layout=org.apache.log4j.PatternLayout\n"
                        "log4j.appender.file.layout.ConversionPattern=%p %m%n\n");
        logger::LoggerInstantiation instantiation(QStringLiteral("Pump Bench"));
        QFile log(folder.filePath(QStringLiteral("Pump Bench.log")));
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QByteArray text = log.readAll();
        QVERIFY2(text.startsWith("INFO QtApps/Common/Logger/LoggerInstantiation:"), text);
        QVERIFY(text.contains(" LogStartup - Pump Bench starting...\n"));

        // An edited file takes effect while the program runs.
        writeProperties("log4j.rootLogger=INFO, file\n"
                        "log4j.appender.file=org.apache.log4j.FileAppender\n"
                        "log4j.appender.file.File=" +
                        folder.path().toUtf8() +
                        "/edited.log\n"
                        "log4j.appender.file.layout=org.apache.log4j.PatternLayout\n"
                        "log4j.appender.file.layout.ConversionPattern=%m%n\n");
        QTRY_VERIFY(QFile::exists(folder.filePath(QStringLiteral("edited.log"))));
        instantiation.onApplicationExit();
        QFile edited(folder.filePath(QStringLiteral("edited.log")));
        QVERIFY(edited.open(QIODevice::ReadOnly));
        QVERIFY(edited.readAll().contains("Pump Bench stopped."));
    }

    void brokenPropertiesFile_fallsBackToDefaults() {
        writeProperties("log4j.rootLogger=INFO, nowhere\n"
                        "log4j.appender.broken=org.apache.log4j.NoSuchAppender\n"
                        "this line means nothing\n");
        logger::LoggerInstantiation instantiation(QStringLiteral("Brackwater Link"));
        QVERIFY(!log4cxx::Logger::getRootLogger()->getAllAppenders().empty());
        testsupport::LogCapture capture;
        instantiation.onApplicationExit();
        QVERIFY(capture.contains(QStringLiteral("Brackwater Link stopped.")));
    }

    void qtMessages_reachTheLog() {
        testsupport::LogCapture capture;
        logger::InstallQtMessageHandler();
        qWarning("a warning from Qt");
        qInstallMessageHandler(nullptr);
        QVERIFY(capture.contains(QStringLiteral("WARN Qt:")));
        QVERIFY(capture.contains(QStringLiteral("a warning from Qt")));
    }
};

QTEST_GUILESS_MAIN(LoggingSetUpTest)
#include "LoggingSetUpTest.moc"
