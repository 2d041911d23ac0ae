#pragma once

#include <QString>
#include <QStringList>

namespace models::log {

/// Who the exported log belongs to: written as the export's three header lines.
struct PumpLogExportHeader {
    QString pumpSerial;
    QString pumpSoftwareVersion;
    QString appSoftwareVersion;
};

/// Appends an export of the display rows (see PumpLogRows.h) to the file at `path`, creating
/// it if needed; an existing file keeps its content and gets the export at its end. Lines end
/// with a single "\n", text is UTF-8:
///
///     "Pump serial number",<serial>
///     "Pump software version",<pump version>
///     "App software version",<app version>
///     <time>," <text>"            one line per row, split at the row's first colon
///
/// The three labels are translated (context "PumpLogModel"). Quotes in the text are not
/// escaped; a row without a colon is written whole on both sides of the comma.
///
/// Returns false, and leaves the disk as it was, when the file cannot be opened or written (a
/// new file is removed again, an existing one cut back to its old length).
bool WritePumpLogExport(const QString& path, const PumpLogExportHeader& header,
                        const QStringList& rows);

} // namespace models::log
