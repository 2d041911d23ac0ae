#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/PumpDetails.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpEnums.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <cstdint>

namespace communication {

class PumpDetailsController;
class PumpValues;

/// The pump's live readings for the status panel ("cpp.PumpValuesController"). Each property is
/// the last reading of one streaming value. Subscriptions wait for the pump's details, because
/// a network pump has no analog inputs to stream: a subscribe() before they arrive is kept and
/// carried out once, when they do. The fault word is streamed with the readings, for the fault
/// list of the same panel.
class PumpValuesController final : public QObject, public QmlSingleton<PumpValuesController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isNetworkPump READ isNetworkPump NOTIFY isNetworkPumpChanged)
    /// Whether the pump-head cover is open.
    Q_PROPERTY(bool pumpCoverOpen READ pumpCoverOpen NOTIFY pumpCoverStatusChanged)
    /// Supply (bus) voltage, millivolts.
    Q_PROPERTY(float pumpBusVoltage READ pumpBusVoltage NOTIFY pumpBusVoltageChanged)
    /// Analog current input, microamperes.
    Q_PROPERTY(float pumpInputCurrentUa READ pumpInputCurrentUa NOTIFY pumpInputCurrentChanged)
    /// Analog frequency input, hertz.
    Q_PROPERTY(
        float pumpInputFrequencyHz READ pumpInputFrequencyHz NOTIFY pumpInputFrequencyChanged)
    /// Analog voltage input, millivolts.
    Q_PROPERTY(float pumpInputVoltageMv READ pumpInputVoltageMv NOTIFY pumpInputVoltageChanged)
    Q_PROPERTY(bool enableLineAsserted READ enableLineAsserted NOTIFY enableLineAssertedChanged)
    /// Drive temperature, degrees Celsius.
    Q_PROPERTY(float pumpTemperature READ pumpTemperature NOTIFY pumpTempChanged)
    /// Actual motor speed, tenths of rpm; negative while turning in reverse.
    Q_PROPERTY(int pumpActualSpeedDrpm READ pumpActualSpeedDrpm NOTIFY pumpActualSpeedChanged)
    /// Whether the prime input is active.
    Q_PROPERTY(bool pumpPrimeInputState READ pumpPrimeInputState NOTIFY pumpPrimeInputStateChanged)
    /// "Forward" or "Reverse", translated.
    Q_PROPERTY(QString direction READ direction NOTIFY directionChanged)
    Q_PROPERTY(bool directionIsForward READ directionIsForward NOTIFY directionChanged)
    /// Power drawn, watts.
    Q_PROPERTY(float powerUsageW READ powerUsageW NOTIFY powerUsageChanged)
    Q_PROPERTY(bool isMotorEnergized READ isMotorEnergized NOTIFY isEnergizedChanged)

public:
    PumpValuesController(PumpValues& values, PumpDetailsController& details,
                         QObject* parent = nullptr);

    bool isNetworkPump() const { return mIsNetworkPump; }
    bool pumpCoverOpen() const { return mCoverOpen; }
    float pumpBusVoltage() const { return mBusVoltageMv; }
    float pumpInputCurrentUa() const { return mInputCurrentUa; }
    float pumpInputFrequencyHz() const { return mInputFrequencyHz; }
    float pumpInputVoltageMv() const { return mInputVoltageMv; }
    bool enableLineAsserted() const { return mEnableLineAsserted; }
    float pumpTemperature() const { return mTemperatureC; }
    int32_t pumpActualSpeedDrpm() const { return mActualSpeedDrpm; }
    bool pumpPrimeInputState() const { return mPrimeInputState; }
    QString direction() const;
    bool directionIsForward() const { return mDirection == halyard::Direction::Forward; }
    float powerUsageW() const { return mPowerUsageW; }
    bool isMotorEnergized() const { return mMotorEnergized; }

signals:
    void isNetworkPumpChanged();
    void pumpActualSpeedChanged();
    void pumpBusVoltageChanged();
    void pumpCoverStatusChanged();
    void pumpInputCurrentChanged();
    void pumpInputFrequencyChanged();
    void pumpInputVoltageChanged();
    void enableLineAssertedChanged();
    void pumpTempChanged();
    void pumpPrimeInputStateChanged();
    void directionChanged();
    void powerUsageChanged();
    void isEnergizedChanged();

public slots:
    /// Clears (acknowledges) the pump's faults.
    void acknowledgeFaults();
    void getEncoderData();
    void subscribe();
    void unsubscribe();

    void pumpActualSpeed_actualSpeedChanged(int32_t speedDrpm);
    void pumpBusVoltage_busVoltageChanged(float busVoltageMv);
    void pumpCoverStatus_coverStatusChanged(bool coverOpen);
    void
    pumpDetailsController_onPumpDetailsChanged(const communication::objects::PumpDetails& details);
    void pumpInputCurrent_inputCurrentChanged(float currentUa);
    void pumpInputFrequency_inputFrequencyChanged(float frequencyHz);
    void pumpInputVoltage_inputVoltageChanged(float voltageMv);
    void pumpEnableLineAsserted_enableLineAssertedUpdate(bool asserted);
    void pumpTemperature_tempChanged(float temperatureC);
    void pumpPrimeInputState_primeInputStateChanged(bool state);
    void pumpDirection_directionChanged(halyard::Direction direction);
    void pumpPowerUsage_powerUsageChanged(float powerUsageW);
    void motorEnergized_motorEnergizedChanged(bool isEnergized);

private:
    /// Subscribes (true) or unsubscribes every value behind the properties.
    void subscribeAll(bool subscribe);

    PumpValues& mValues;
    PumpDetailsController& mDetails;
    bool mIsNetworkPump = false;
    bool mPumpDetailsReceived = false;
    bool mSubscribePending = false;
    bool mCoverOpen = false;
    float mBusVoltageMv = 0.0F;
    float mInputCurrentUa = 0.0F;
    float mInputFrequencyHz = 0.0F;
    float mInputVoltageMv = 0.0F;
    bool mEnableLineAsserted = false;
    float mTemperatureC = 0.0F;
    int32_t mActualSpeedDrpm = 0;
    bool mPrimeInputState = false;
    halyard::Direction mDirection = halyard::Direction::Forward;
    float mPowerUsageW = 0.0F;
    bool mMotorEnergized = false;
};

} // namespace communication
