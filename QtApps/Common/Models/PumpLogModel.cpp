#include "PumpLogModel.h"

#include "PumpLogExport.h"
#include "PumpLogRows.h"
#include "QtApps/Common/Controllers/QueuedCall.h"

#include "QtApps/Common/Model/PumpValues/Logger/PumpLog.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>

namespace models::log {

using communication::PumpLog;

PumpLogModel::PumpLogModel(PumpLog& log, QObject* parent) : QAbstractListModel(parent), mLog(log) {
    connect(&log, &PumpLog::logUpdated, this, &PumpLogModel::updatePumpLog, Qt::QueuedConnection);
}

int PumpLogModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

QVariant PumpLogModel::data(const QModelIndex& index, int role) const {
    if (role != LogEntryRole ||
        !checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    return mRows.at(index.row());
}

QHash<int, QByteArray> PumpLogModel::roleNames() const {
    return {{LogEntryRole, "logEntry"}};
}

bool PumpLogModel::getPumpLog() {
    return communication::callQueued(mLog, &PumpLog::get);
}

bool PumpLogModel::clearPumpLog() {
    return communication::callQueued(mLog, &PumpLog::clearLog);
}

bool PumpLogModel::exportCsv(const QString& pumpSerial, const QString& pumpFirmwareVs,
                             const QString& appVs) {
    const QString path = QFileDialog::getSaveFileName(
        nullptr, QCoreApplication::translate("PumpLogModel", "Save Document"),
        proposedExportPath(pumpSerial),
        QCoreApplication::translate("PumpLogModel", "Log files (.log);"));
    if (path.isEmpty()) {
        return false;
    }
    return exportToFile(path, pumpSerial, pumpFirmwareVs, appVs);
}

bool PumpLogModel::exportToFile(const QString& path, const QString& pumpSerial,
                                const QString& pumpSoftwareVersion,
                                const QString& appSoftwareVersion) const {
    return WritePumpLogExport(path, {pumpSerial, pumpSoftwareVersion, appSoftwareVersion}, mRows);
}

QString PumpLogModel::proposedExportPath(const QString& pumpSerial) {
    return QDir::homePath() + QStringLiteral("/Downloads/") + pumpSerial +
           QDateTime::currentDateTime().toString(QStringLiteral("_yyMMdd_hhmmss")) +
           QStringLiteral(".log");
}

void PumpLogModel::updatePumpLog(const QStringList& log) {
    if (!mRows.isEmpty()) {
        beginRemoveRows(QModelIndex(), 0, static_cast<int>(mRows.size()) - 1);
        mRows.clear();
        endRemoveRows();
    }
    if (log.isEmpty()) {
        return;
    }
    QStringList rows;
    rows.reserve(log.size());
    for (const QString& entry : log) {
        rows.append(DisplayRow(entry));
    }
    beginInsertRows(QModelIndex(), 0, static_cast<int>(rows.size()) - 1);
    mRows = std::move(rows);
    endInsertRows();
}

} // namespace models::log
