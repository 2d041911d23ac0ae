#pragma once

#include "PumpSettings.h"
#include "SettingComparison.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace pumpSettings {

/// Loads a settings file into the connected pump, or previews what a load would change.
///
/// Nothing is set before the whole file has been checked: the document, each section's layout,
/// and that the file is for this kind of pump. The pump's present values are then read (a
/// preview stops here and reports them beside the file's), the file's values are set, and each
/// is read back after its acknowledgement. Only when every read-back is what the file asked is
/// the load a success; the pump is then reset 1.5 s later to restart with its new settings. A
/// pump that kept another value (one limit of its own, say), and still holds it when asked
/// again, is reported as not having taken all settings, with the settings that differ, and is
/// not reset.
class PumpSettingsLoad final : public PumpSettings {
    Q_OBJECT

public:
    static constexpr int kResetDelayMs = 1500;

    explicit PumpSettingsLoad(communication::PumpValues& values, QObject* parent = nullptr);

    /// Starts a load of `filePath` (a local file URL); false when a load runs already.
    bool load(const QUrl& filePath);
    /// Starts a preview of `filePath`: the same checks and the same read of the pump as a load,
    /// but nothing is set; ends with previewResult.
    bool preview(const QUrl& filePath);

    /// After a successful preview, every setting of the file beside the pump's (the pump's
    /// identity first).
    const QList<SettingComparison>& comparisons() const { return mComparisons; }
    /// After a load that ended "Could not apply all settings", the names of the settings whose
    /// read-back differs from the file.
    const QStringList& notApplied() const { return mNotApplied; }

signals:
    void pumpSettings_loadResult(bool success, pumpSettings::PumpSettingsResultType result);
    void previewResult(bool success, pumpSettings::PumpSettingsResultType result);

private:
    enum class Mode { Load, Preview };
    enum class Phase { Idle, Details, Reading, Applying };

    bool start(const QUrl& filePath, Mode mode);
    /// Reads and parses the file; the result on failure.
    std::optional<PumpSettingsResultType> readRoot();
    void onDetails() override;
    void onValueAnswered() override;
    void onTimeout() override;
    void onApplied();
    void resetPump();
    void finish(bool success, PumpSettingsResultType result);
    /// Every section's comparisons, "oemPump" first.
    QList<SettingComparison> compareAll() const;

    Mode mMode = Mode::Load;
    Phase mPhase = Phase::Idle;
    QTimer mResetTimer;
    QList<SettingComparison> mComparisons;
    QStringList mNotApplied;
};

} // namespace pumpSettings
