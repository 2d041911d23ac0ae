#pragma once

#include "QtApps/Common/Controllers/QmlSingleton.h"

#include <QAbstractListModel>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace communication {
class PumpLog;
}

namespace models::log {

/// The pump's event log on the maintenance tab ("cpp.PumpLogModel"): one row per entry, oldest
/// first, each with its time prefix (see PumpLogRows.h). Reading and clearing run on the pump
/// values' thread; the rows are replaced as a whole when a read ends (also a read cut short by
/// a failed entry, which delivers the entries read so far). A read that cannot start leaves the
/// rows as they are.
///
/// Roles (the number is the role value itself, not an offset from Qt::UserRole):
///   0 "logEntry"  the display row (QString)
class PumpLogModel final : public QAbstractListModel,
                           public communication::QmlSingleton<PumpLogModel> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    enum Role { LogEntryRole = 0 };

    PumpLogModel(communication::PumpLog& log, QObject* parent);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Starts reading the whole log; returns whether the read could be queued.
    Q_INVOKABLE bool getPumpLog();
    /// Clears the pump's log (which is then read again); returns whether it could be queued.
    Q_INVOKABLE bool clearPumpLog();
    /// Asks for a file name in a save dialog (proposed: ~/Downloads/<serial>_yyMMdd_hhmmss.log)
    /// and appends the export there (see exportToFile). The three texts are written under the
    /// labels "Pump serial number", "Pump software version" and "App software version", in
    /// this order. Returns false when the dialog is cancelled or the file cannot be written.
    Q_INVOKABLE bool exportCsv(const QString& pumpSerial, const QString& pumpFirmwareVs,
                               const QString& appVs);

    /// Appends the export of the rows shown to the file at `path` (see PumpLogExport.h);
    /// false, with nothing changed on disk, when it cannot be written.
    Q_INVOKABLE bool exportToFile(const QString& path, const QString& pumpSerial,
                                  const QString& pumpSoftwareVersion,
                                  const QString& appSoftwareVersion) const;

    /// The file name the save dialog proposes for an export made now.
    static QString proposedExportPath(const QString& pumpSerial);

public slots:
    /// Replaces the rows with the entries of a finished read.
    void updatePumpLog(const QStringList& log);

private:
    communication::PumpLog& mLog;
    QStringList mRows;
};

} // namespace models::log
