#include "PumpLogExport.h"

#include "QtApps/Common/Logger/Log.h"

#include <QCoreApplication>
#include <QFile>

namespace models::log {

namespace {

QString headerLine(const char* label, const QString& value) {
    return QStringLiteral("\"%1\",%2\n")
        .arg(QCoreApplication::translate("PumpLogModel", label), value);
}

QString rowLine(const QString& row) {
    const qsizetype colon = row.indexOf(QLatin1Char(':'));
    const QString time = colon < 0 ? row : row.left(colon);
    const QString text = colon < 0 ? row : row.mid(colon + 1);
    return QStringLiteral("%1,\"%2\"\n").arg(time, text);
}

QByteArray exportText(const PumpLogExportHeader& header, const QStringList& rows) {
    QString text =
        headerLine(QT_TRANSLATE_NOOP("PumpLogModel", "Pump serial number"), header.pumpSerial) +
        headerLine(QT_TRANSLATE_NOOP("PumpLogModel", "Pump software version"),
                   header.pumpSoftwareVersion) +
        headerLine(QT_TRANSLATE_NOOP("PumpLogModel", "App software version"),
                   header.appSoftwareVersion);
    for (const QString& row : rows) {
        text += rowLine(row);
    }
    return text.toUtf8();
}

} // namespace

bool WritePumpLogExport(const QString& path, const PumpLogExportHeader& header,
                        const QStringList& rows) {
    const QByteArray text = exportText(header, rows);
    QFile file(path);
    const bool existed = file.exists();
    // Binary append: no line-end translation, so every line ends with "\n" on every platform.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        BWL_LOG_WARN(
            "WritePumpLogExport",
            QStringLiteral("Cannot open %1 for the log export: %2").arg(path, file.errorString()));
        return false;
    }
    const qint64 oldSize = file.size();
    if (file.write(text) == text.size() && file.flush()) {
        file.close();
        return true;
    }
    BWL_LOG_WARN(
        "WritePumpLogExport",
        QStringLiteral("Cannot write the log export to %1: %2").arg(path, file.errorString()));
    if (existed) {
        file.resize(oldSize);
        file.close();
    } else {
        file.close();
        file.remove();
    }
    return false;
}

} // namespace models::log
