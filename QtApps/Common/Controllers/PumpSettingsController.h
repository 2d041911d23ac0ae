#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/CelerationLimits.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpEnums.h"

#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

#include <cstdint>

namespace communication {

class PumpValues;

/// The pump's configuration for the screens ("cpp.PumpSettingsController"): how its speed is
/// controlled, the fitted pump head, acceleration, deceleration and prime speed, and the reset.
/// Every setter goes through its pump value (retries, read-back), and a property changes only
/// when the pump reports, so the screens always show what the pump holds.
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

public:
    explicit PumpSettingsController(PumpValues& values, QObject* parent = nullptr);

    QString pumpControlInput() const { return mControlInput; }
    QString pumpHead() const { return mPumpHead; }
    float accelerationRpmPerSecond() const { return mAcceleration; }
    float decelerationRpmPerSecond() const { return mDeceleration; }
    const objects::CelerationLimits& celerationLimits() const { return mCelerationLimits; }
    int primeSpeedDrpm() const { return mPrimeSpeedDrpm; }

signals:
    void pumpControlInputChanged();
    void pumpHeadChanged();
    void accelerationRpmPerSecondChanged();
    void decelerationRpmPerSecondChanged();
    void celerationLimitsChanged();
    void primeSpeedDrpmChanged();

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

private slots:
    void onControlInputReported(halyard::pump::ControlInput controlInput);

private:
    PumpValues& mValues;
    QString mControlInput;
    QString mPumpHead;
    float mAcceleration = 0.0F;
    float mDeceleration = 0.0F;
    objects::CelerationLimits mCelerationLimits;
    int mPrimeSpeedDrpm = 0;
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
