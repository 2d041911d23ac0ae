#include "PumpLogRows.h"

namespace models::log {

namespace {
constexpr qint64 kMsPerHour = 3600000;
constexpr qint64 kMsPerMinute = 60000;
constexpr qint64 kMsPerSecond = 1000;
} // namespace

QString TimePrefix(qint64 milliseconds) {
    const qint64 hours = milliseconds / kMsPerHour;
    qint64 rest = milliseconds - hours * kMsPerHour;
    const qint64 minutes = rest / kMsPerMinute;
    rest -= minutes * kMsPerMinute;
    const qint64 seconds = rest / kMsPerSecond;
    rest -= seconds * kMsPerSecond;
    return QStringLiteral("%1h %2m %3s %4ms: ").arg(hours).arg(minutes).arg(seconds).arg(rest);
}

QString DisplayRow(const QString& entry) {
    const qsizetype colon = entry.indexOf(QLatin1Char(':'));
    qint64 milliseconds = 0;
    QString text = entry;
    if (colon >= 0) {
        bool parsed = false;
        milliseconds = entry.left(colon).toLongLong(&parsed);
        if (!parsed) {
            milliseconds = 0;
        }
        text = entry.mid(colon + 1);
    }
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control) {
            character = QChar::ReplacementCharacter;
        }
    }
    return TimePrefix(milliseconds) + text;
}

} // namespace models::log
