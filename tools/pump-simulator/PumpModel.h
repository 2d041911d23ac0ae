#pragma once

#include "EventLog.h"
#include "PumpSettings.h"
#include "SimulatorClock.h"
#include "SimulatorOptions.h"

#include <QObject>
#include <QRandomGenerator>

#include <array>
#include <cstdint>
#include <vector>

namespace simulator {

/// The four values of one analog filter stream, as floats: input, output and their variances
/// (in the input's unit squared).
struct FilterData {
    float input = 0.0F;
    float output = 0.0F;
    float inputVariance = 0.0F;
    float outputVariance = 0.0F;
};

struct EncoderData {
    std::uint32_t position = 0;    // counts, 4000 a revolution, wrapping
    std::uint32_t revolutions = 0; // whole revolutions either way
    std::uint8_t status = 0;
    std::uint8_t warnings = 0;        // bits, none raised
    std::uint8_t errors = 0;          // bits, none raised
    std::uint8_t fieldStrength = 100; // percent of the magnet's nominal field
};

/// The simulated pump drive: its identity, its non-volatile settings, and the machine itself,
/// run in small time steps: the motor follows its target speed along the acceleration and
/// deceleration ramps, the power, temperature and bus voltage follow the load, the analog inputs
/// feed the speed commander, faults arise and are acknowledged, and the event log records what
/// happened. Measurements carry a little noise, drawn from seeded random sequences.
class PumpModel : public QObject {
    Q_OBJECT

public:
    static constexpr int kTickMs = 10;
    /// Measurements (and their noise) are refreshed at this period, as the pump's own sampling.
    static constexpr int kMeasurementPeriodMs = 1000;
    static constexpr std::uint32_t kMaxSpeedDrpm = 3000;
    static constexpr double kWarningTemperatureC = 70.0;
    static constexpr double kShutdownTemperatureC = 85.0;

    PumpModel(const SimulatorOptions& options, SimulatorClock& clock, QObject* parent = nullptr);

    const SimulatorOptions& identity() const { return mOptions; }
    /// The application firmware the pump runs: the option's version until an update installs
    /// another, which runs from the next restart on.
    halyard::SemanticVersion firmwareVersion() const { return mFirmwareVersion; }
    void installFirmware(halyard::SemanticVersion version) { mInstalledFirmware = version; }
    const PumpSettings& settings() const { return mSettings; }
    EventLog& eventLog() { return mEventLog; }
    void logEvent(const QString& text);

    /// Advances the machine by `ms` milliseconds.
    void advance(int ms);
    /// Back to power-on state; settings stay.
    void restart();

    // Settings: each returns false, changing nothing, for a value outside its limits.
    bool setControlInput(std::uint8_t input);
    bool setApplicationSpeed(std::int32_t speedDrpm);
    void setApplicationSpeedEnable(bool enable);
    void setApplicationOverrideActive(bool active);
    bool setPrimeSpeed(std::uint32_t speedDrpm);
    bool setAcceleration(float rpmPerSec);
    bool setDeceleration(float rpmPerSec);
    bool setSpeedRange(SpeedInput input, const SpeedRangeProfile& profile);
    void setDefaultSpeedRange(SpeedInput input);
    bool setHysteresis(SpeedInput input, std::uint32_t hysteresis);
    bool setEnableLineSpeed(std::uint32_t speedDrpm);
    void setDefaultEnableLineSpeed();
    bool setNumSamples(SpeedInput input, std::uint32_t samples);
    bool setCalibration(std::size_t channel, Calibration calibration);
    bool setHead(std::uint8_t headType);
    bool setTorqueIndex(std::uint8_t index);
    void setPortSetting(std::uint8_t value);
    void setIpConfig(const IpConfig& config);
    void resetIpConfig();
    void resetSettings();

    // Faults.
    std::uint32_t faults() const { return mFaults; }
    bool raiseFault(std::uint8_t faultType);
    void acknowledgeFaults();

    // The world around the pump (console).
    void setCoverOpen(bool open);
    void setPrimeInput(bool active);
    void setEnableLine(bool asserted);
    void setHeat(double extraDegrees);
    void setAnalogInput(SpeedInput input, double value);

    // Readings.
    std::int32_t applicationSpeedDrpm() const { return mApplicationSpeedDrpm; }
    bool applicationOverrideActive() const { return mOverrideActive; }
    std::int32_t actualSpeedDrpm() const;
    std::int32_t targetSpeedDrpm() const;
    bool coverOpen() const { return mCoverOpen; }
    std::uint8_t direction() const { return mDirection; }
    bool energised() const { return mEnergised; }
    bool aligned() const { return mAligned; }
    bool primeInputActive() const { return mPrimeInput; }
    bool enableLineAsserted() const { return mEnableLine; }
    float powerW() const { return mReported.power; }
    float temperatureC() const { return mReported.temperature; }
    float busVoltageMv() const { return mReported.busVoltage; }
    float analogInput(SpeedInput input) const;
    /// The converter's view of the current, voltage and bus voltage inputs, in millivolts.
    float adcCurrentMv() const;
    float adcVoltageMv() const;
    float adcBusVoltageMv() const;
    std::uint32_t commandedSpeedDrpm(SpeedInput input) const;
    EncoderData encoderData() const { return mEncoder; }
    std::vector<float> torqueTargetsA() const;
    /// Takes the next filter sample of an input (current or voltage).
    FilterData nextFilterData(SpeedInput input);
    double trueTemperatureC() const { return mTemperature; }

private:
    struct Reported {
        float power = 0.0F;
        float temperature = 0.0F;
        float busVoltage = 0.0F;
        std::array<float, kSpeedInputCount> inputs{};
    };

    void step(double seconds);
    void sampleMeasurements();
    void updateCommandedSpeeds();
    void checkTemperature();
    bool stoppingFaultActive() const;
    /// `speedDrpm` as the drive takes it: with --clamp-speeds-to-head no faster than the fitted
    /// head's rated speed (a head without a rating limits nothing); a reduction is logged.
    std::uint32_t limitedToHead(std::uint32_t speedDrpm, const char* what);
    double gaussian(QRandomGenerator& random);

    const SimulatorOptions& mOptions;
    SimulatorClock& mClock;
    halyard::SemanticVersion mFirmwareVersion;
    halyard::SemanticVersion mInstalledFirmware;
    PumpSettings mSettings;
    EventLog mEventLog;
    QRandomGenerator mMeasurementNoise;
    QRandomGenerator mFilterNoise;

    std::int32_t mApplicationSpeedDrpm = 0;
    bool mOverrideActive = false;
    double mActualSpeedDrpm = 0.0;
    std::uint8_t mDirection = 0; // 0 clockwise, 1 anticlockwise
    bool mEnergised = false;
    bool mAligned = false;
    int mEnergisedMs = 0;
    double mEncoderCounts = 0.0;
    EncoderData mEncoder;
    std::uint32_t mFaults = 0;
    bool mCoverOpen = false;
    bool mPrimeInput = false;
    bool mEnableLine = false;
    double mHeat = 0.0;
    double mTemperature = 30.0;
    double mPower = 0.0;
    std::array<double, kSpeedInputCount> mInputs{12000.0, 5000.0, 0.0};
    std::array<double, kSpeedInputCount> mInputsSeen{}; // after hysteresis
    std::array<std::uint32_t, kSpeedInputCount> mCommandedDrpm{};
    Reported mReported;
    int mSinceSampleMs = 0;
};

} // namespace simulator
