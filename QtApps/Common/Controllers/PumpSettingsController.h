#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/CelerationLimits.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpEnums.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqml.h>

#include <cstdint>

namespace pumpSettings {
class PumpSettingsLoad;
class PumpSettingsSave;
enum class PumpSettingsResultType;
} // namespace pumpSettings

namespace communication {

class PumpValues;

/// The pump's configuration for the screens ("cpp.PumpSettingsController"): how its speed is
/// controlled, the fitted pump head, acceleration, deceleration and prime speed, and the reset.
/// Every setter goes through its pump value (retries, read-back), and a property changes only
/// when the pump reports, so the screens always show what the pump holds.
///
/// It also saves the pump's settings to a file and loads a file into the pump (the maintenance
/// tab), with a preview of what a load would change. One of these runs at a time. File paths
/// are taken as the file dialogs give them ("file:///..." URLs) or as plain local paths.
class PumpSettingsController final : public QObject, public QmlSingleton<PumpSettingsController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// "None", "Enable line", "Voltage", "Current", "Frequency", "Application" or "Network";
    /// empty until reported.
    Q_PROPERTY(QString pumpControlInput READ pumpControlInput NOTIFY pumpControlInputChanged)
    /// Catalogue name of the fitted head; empty until reported.
    Q_PROPERTY(QString pumpHead READ pumpHead NOTIFY pumpHeadChanged)
    Q_PROPERTY(float accelerationRpmPerSecond READ accelerationRpmPerSecond NOTIFY
                   accelerationRpmPerSecondChanged)
    Q_PROPERTY(float decelerationRpmPerSecond READ decelerationRpmPerSecond NOTIFY
                   decelerationRpmPerSecondChanged)
    /// The lowest and highest rpm per second the pump accepts for both.
    Q_PROPERTY(communication::objects::CelerationLimits celerationLimits READ celerationLimits
                   NOTIFY celerationLimitsChanged)
    /// Speed while the prime input is active, tenths of rpm.
    Q_PROPERTY(int primeSpeedDrpm READ primeSpeedDrpm NOTIFY primeSpeedDrpmChanged)
    /// Whether the last save succeeded, and its result as the screens show it ("Success", "Could
    /// not open file", "Pump response timeout").
    Q_PROPERTY(bool configSaveSuccess READ configSaveSuccess NOTIFY configSaveResultReceived)
    Q_PROPERTY(QString configSaveResult READ configSaveResult NOTIFY configSaveResultReceived)
    /// Whether the last load succeeded, and its result ("Success. Rebooting pump...", "Could not
    /// apply all settings", "Invalid file format", "Incompatible pump settings", ...).
    Q_PROPERTY(bool configLoadSuccess READ configLoadSuccess NOTIFY configLoadResultReceived)
    Q_PROPERTY(QString configLoadResult READ configLoadResult NOTIFY configLoadResultReceived)
    /// After a load that ended "Could not apply all settings": the names of the settings the
    /// pump holds otherwise than the file asked; empty after any other result.
    Q_PROPERTY(
        QStringList settingsNotApplied READ settingsNotApplied NOTIFY configLoadResultReceived)
    /// After a preview that succeeded: one map per setting of the file, the pump's identity
    /// first, with "setting" (its name), "pumpValue" and "fileValue" (texts with units) and
    /// "changed" (bool). Empty after a preview that failed.
    Q_PROPERTY(QVariantList loadPreview READ loadPreview NOTIFY loadPreviewReady)
    /// Why the last previewed file would be refused (the load's result text); empty when it
    /// would be loaded.
    Q_PROPERTY(QString loadPreviewResult READ loadPreviewResult NOTIFY loadPreviewReady)
    /// A save, preview or load is running (a load until it has sent the pump's reset).
    Q_PROPERTY(bool settingsFileBusy READ settingsFileBusy NOTIFY settingsFileBusyChanged)

public:
    explicit PumpSettingsController(PumpValues& values, QObject* parent = nullptr);
    ~PumpSettingsController() override;

    QString pumpControlInput() const { return mControlInput; }
    QString pumpHead() const { return mPumpHead; }
    float accelerationRpmPerSecond() const { return mAcceleration; }
    float decelerationRpmPerSecond() const { return mDeceleration; }
    const objects::CelerationLimits& celerationLimits() const { return mCelerationLimits; }
    int primeSpeedDrpm() const { return mPrimeSpeedDrpm; }
    bool configSaveSuccess() const { return mSaveSuccess; }
    QString configSaveResult() const { return mSaveResult; }
    bool configLoadSuccess() const { return mLoadSuccess; }
    QString configLoadResult() const { return mLoadResult; }
    QStringList settingsNotApplied() const { return mNotApplied; }
    QVariantList loadPreview() const { return mPreview; }
    QString loadPreviewResult() const { return mPreviewResult; }
    bool settingsFileBusy() const;

signals:
    void pumpControlInputChanged();
    void pumpHeadChanged();
    void accelerationRpmPerSecondChanged();
    void decelerationRpmPerSecondChanged();
    void celerationLimitsChanged();
    void primeSpeedDrpmChanged();
    void configSaveResultReceived();
    void configLoadResultReceived();
    void loadPreviewReady(bool ok);
    void settingsFileBusyChanged();

public slots:
    void getControlInput();
    /// `controlInput` is one of the texts of pumpControlInput; any other text is refused
    /// (logged, nothing sent) and false returned.
    bool setControlInput(const QString& controlInput);
    void getPumpHead();
    void setPumpHead(const QString& pumpHead);
    void getAccelerationRpmPerSecond();
    void setAccelerationRpmPerSecond(float rpmPerSecond);
    void getDecelerationRpmPerSecond();
    void setDecelerationRpmPerSecond(float rpmPerSecond);
    void getCelerationLimits();
    void getPrimeSpeedDrpm();
    /// A speed that is not a whole number within the pump's field is refused: false, nothing
    /// sent.
    bool setPrimeSpeedDrpm(double speedDrpm);
    /// Restarts the pump, which applies settings that take effect only at power-on.
    void resetPump();

    /// Saves the pump's settings to `filePath`; false, with nothing done, while another save,
    /// preview or load runs. configSaveResultReceived follows.
    bool save(const QString& filePath);
    /// Loads `filePath` into the pump; false while another runs. configLoadResultReceived
    /// follows.
    bool load(const QString& filePath);
    /// Checks `filePath` and reads the pump's present values, but sets nothing; false while
    /// another runs. loadPreviewReady follows.
    bool previewLoad(const QString& filePath);

private slots:
    void onControlInputReported(halyard::pump::ControlInput controlInput);

private:
    /// Whether no save, preview or load runs; logs the refusal of `what` otherwise.
    bool idle(const char* what) const;
    void onSaveResult(bool success, pumpSettings::PumpSettingsResultType result);
    void onLoadResult(bool success, pumpSettings::PumpSettingsResultType result);
    void onPreviewResult(bool success, pumpSettings::PumpSettingsResultType result);

    PumpValues& mValues;
    QString mControlInput;
    QString mPumpHead;
    float mAcceleration = 0.0F;
    float mDeceleration = 0.0F;
    objects::CelerationLimits mCelerationLimits;
    int mPrimeSpeedDrpm = 0;
    pumpSettings::PumpSettingsSave* mSave;
    pumpSettings::PumpSettingsLoad* mLoad;
    bool mSaveSuccess = false;
    QString mSaveResult;
    bool mLoadSuccess = false;
    QString mLoadResult;
    QStringList mNotApplied;
    QVariantList mPreview;
    QString mPreviewResult;
};

/// Tells the QML engine and tools (qmllint, the QML compiler) the fields of the record that
/// this controller hands to the screens, so that a screen reading a field that does not exist fails
/// the build.
struct QmlCelerationLimits {
    Q_GADGET
    QML_FOREIGN(communication::objects::CelerationLimits)
    QML_ANONYMOUS
};

} // namespace communication
