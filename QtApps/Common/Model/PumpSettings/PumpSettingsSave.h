#pragma once

#include "PumpSettings.h"

namespace pumpSettings {

/// Saves the connected pump's settings to a file: asks the pump for its details and then for
/// every value of its sections, and writes them as one indented JSON document with sorted keys.
/// The document goes to a temporary file beside the target, which then replaces the target, so
/// a failed or interrupted save leaves the old file as it was and never a half-written one.
class PumpSettingsSave final : public PumpSettings {
    Q_OBJECT

public:
    explicit PumpSettingsSave(communication::PumpValues& values, QObject* parent = nullptr);

    /// Starts a save to `filePath` (a local file URL); false when a save runs already.
    bool save(const QUrl& filePath);

signals:
    void pumpSettingsSave_saveResult(bool success, pumpSettings::PumpSettingsResultType result);

private:
    void onDetails() override;
    void onValueAnswered() override;
    void onTimeout() override;

    /// Whether the target can be written, without creating it.
    bool canWrite(const QUrl& filePath);
    void writeJsonToFile();
    void finish(bool success, PumpSettingsResultType result);
};

} // namespace pumpSettings
