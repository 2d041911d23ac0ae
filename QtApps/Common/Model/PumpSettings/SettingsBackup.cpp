#include "SettingsBackup.h"

#include "QtApps/Common/Logger/Log.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>

namespace pumpSettings {

namespace {

// Not a file on disk yet: `path` itself, else the first free "<stem>_N.json".
QString unusedPath(const QString& path) {
    if (!QFileInfo::exists(path)) {
        return path;
    }
    const QString stem = path.chopped(QStringLiteral(".json").size());
    for (int copy = 2;; ++copy) {
        QString candidate = QStringLiteral("%1_%2.json").arg(stem).arg(copy);
        if (!QFileInfo::exists(candidate)) {
            return candidate;
        }
    }
}

} // namespace

SettingsBackup::SettingsBackup(communication::PumpValues& values, QObject* parent)
    : QObject(parent)
    , mSave(values, this) {
    connect(&mSave, &PumpSettingsSave::pumpSettingsSave_saveResult, this,
            &SettingsBackup::onSaveResult);
}

QString SettingsBackup::backupFolder() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
        .filePath(QStringLiteral("backups"));
}

QString SettingsBackup::backupPath(const QString& pumpSerial, const QDateTime& time) {
    static const QRegularExpression unsafe(QStringLiteral("[^A-Za-z0-9.-]"));
    QString name = pumpSerial.trimmed();
    name.replace(unsafe, QStringLiteral("_"));
    if (name.isEmpty()) {
        name = QStringLiteral("pump");
    }
    return QDir(backupFolder())
        .filePath(name + time.toString(QStringLiteral("_yyMMdd_hhmmss")) + QStringLiteral(".json"));
}

bool SettingsBackup::save(const QString& pumpSerial) {
    if (mSave.running()) {
        BWL_LOG_WARN("save", QStringLiteral("Settings backup refused: one is running"));
        return false;
    }
    mPath = unusedPath(backupPath(pumpSerial, QDateTime::currentDateTime()));
    // A folder that cannot be made is reported by the save as a file it cannot open.
    if (!QDir().mkpath(backupFolder())) {
        BWL_LOG_WARN("save", QStringLiteral("Cannot make the folder %1").arg(backupFolder()));
    }
    return mSave.save(QUrl::fromLocalFile(mPath));
}

void SettingsBackup::onSaveResult(bool success, PumpSettingsResultType result) {
    if (success) {
        BWL_LOG_INFO("onSaveResult", QStringLiteral("Pump settings backed up to %1").arg(mPath));
    }
    emit saved(success, mPath, result);
}

} // namespace pumpSettings
