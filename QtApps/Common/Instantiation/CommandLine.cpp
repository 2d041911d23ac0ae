#include "CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

namespace common {

QStringList PortsFromVariable(const QString& value) {
    QStringList ports;
    const QStringList parts = value.split(QDir::listSeparator(), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        const QString name = part.trimmed();
        if (!name.isEmpty()) {
            ports << name;
        }
    }
    return ports;
}

CommandLineOptions ParseCommandLine(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "Configures and services a peristaltic pump drive."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption port(
        QStringLiteral("port"),
        QCoreApplication::translate("main",
                                    "Scan only this serial port (repeatable; overrides %1).")
            .arg(QString::fromLatin1(kPortsVariable)),
        QStringLiteral("NAME"));
    parser.addOption(port);
    const QCommandLineOption record(
        QStringLiteral("record"),
        QCoreApplication::translate("main",
                                    "Record every frame of the session into FILE, for support."),
        QStringLiteral("FILE"));
    parser.addOption(record);
    parser.process(application);

    CommandLineOptions options;
    options.portNames = ChosenPorts(parser.values(port));
    options.recordPath = parser.value(record);
    return options;
}

QStringList ChosenPorts(const QStringList& named) {
    if (!named.isEmpty()) {
        return named;
    }
    return PortsFromVariable(qEnvironmentVariable(kPortsVariable));
}

} // namespace common
