#pragma once

#include "PumpSettingsResultType.h"
#include "PumpSettingsSave.h"

#include <QDateTime>
#include <QObject>
#include <QString>

namespace communication {
class PumpValues;
}

namespace pumpSettings {

/// The connected pump's settings kept aside before an operation that may lose them, such as a
/// firmware update: the settings save, into a file of their own in the application's data
/// folder, named by the pump's serial number and the local time:
///
///     <application data folder>/backups/<serial>_<yyMMdd_hhmmss>.json
///
/// A backup is an ordinary settings file: restoring it is a settings load of that file. No
/// backup replaces another; one made in the same second as an earlier one of the same pump gets
/// "_2", "_3"... before ".json".
///
/// Lives on the user-interface thread, like the save it runs.
class SettingsBackup final : public QObject {
    Q_OBJECT

public:
    explicit SettingsBackup(communication::PumpValues& values, QObject* parent = nullptr);

    /// The folder of the backups, below the platform's application data folder.
    static QString backupFolder();
    /// The file of a backup of pump `pumpSerial` made at `time`. Characters other than letters,
    /// digits, "-" and "." become "_", so that any serial gives a valid file name everywhere; an
    /// empty serial is "pump".
    static QString backupPath(const QString& pumpSerial, const QDateTime& time);

    /// Starts a backup of the connected pump (whose serial is `pumpSerial`) made now; false,
    /// with nothing done, while one runs. `saved` follows.
    bool save(const QString& pumpSerial);
    bool running() const { return mSave.running(); }

signals:
    /// The end of a backup: `path` is where it went (or was to go, on failure).
    void saved(bool success, const QString& path, pumpSettings::PumpSettingsResultType result);

private:
    void onSaveResult(bool success, PumpSettingsResultType result);

    PumpSettingsSave mSave;
    QString mPath;
};

} // namespace pumpSettings
