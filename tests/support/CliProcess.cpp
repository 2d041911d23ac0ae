#include "CliProcess.h"

#include <QDir>
#include <QJsonDocument>
#include <QProcessEnvironment>

namespace testsupport {

QJsonObject CliRun::json() const {
    return QJsonDocument::fromJson(out).object();
}

QStringList CliRun::lines() const {
    return QString::fromUtf8(out).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QString CliRun::lastWords() const {
    const QStringList errLines =
        QString::fromUtf8(err).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (auto line = errLines.crbegin(); line != errLines.crend(); ++line) {
        if (!line->startsWith(QLatin1Char('['))) {
            return *line;
        }
    }
    return {};
}

void prepareCli(QProcess& process, const QString& folder, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // No window system at all: the program must not need one.
    for (const char* name :
         {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "BRACKWATER_LINK_PORTS"}) {
        environment.remove(QString::fromLatin1(name));
    }
    environment.insert(QStringLiteral("XDG_DATA_HOME"),
                       QDir(folder).filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
    process.setProcessEnvironment(environment);
    process.setProgram(QStringLiteral(BWL_CLI_PATH));
    process.setArguments(arguments);
}

CliRun runCli(const QString& folder, const QStringList& arguments, int limitMs) {
    QProcess process;
    prepareCli(process, folder, arguments);
    process.start();
    CliRun run;
    if (!process.waitForFinished(limitMs) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        return run;
    }
    run.status = process.exitCode();
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}

} // namespace testsupport
