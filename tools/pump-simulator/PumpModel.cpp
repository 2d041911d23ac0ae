#include "PumpModel.h"

#include "PumpCatalogue.h"

#include <QtMath>

#include <cmath>

namespace simulator {

namespace {
constexpr quint64 kMeasurementSalt = 0x5851F42D4C957F2Dull;
constexpr quint64 kFilterSalt = 0x14057B7EF767814Full;
constexpr double kAmbientC = 25.0;
constexpr double kIdlePowerW = 0.5;        // the electronics alone
constexpr double kRunningBasePowerW = 3.0; // energised at standstill
constexpr double kPowerPerRpmW = 0.04;
constexpr double kAccelerationPowerW = 2.0;
constexpr double kHeatingCPerW = 0.8;
constexpr double kThermalTimeConstantS = 10.0;
constexpr double kNominalBusMv = 24000.0;
constexpr double kEncoderCountsPerRevolution = 4000.0;
constexpr int kAlignmentMs = 300;
// Spread of the raw analog input samples that the filters smooth, per input.
constexpr double kInputNoiseSigma[kSpeedInputCount] = {40.0, 20.0, 2.0};

quint32 seedOf(quint64 seed, quint64 salt) {
    const quint64 mixed = seed ^ salt;
    return static_cast<quint32>(mixed ^ (mixed >> 32));
}

std::size_t indexOf(SpeedInput input) {
    return static_cast<std::size_t>(input);
}
} // namespace

PumpModel::PumpModel(const SimulatorOptions& options, SimulatorClock& clock, QObject* parent)
    : QObject(parent)
    , mOptions(options)
    , mClock(clock)
    , mFirmwareVersion(options.firmwareVersion)
    , mInstalledFirmware(options.firmwareVersion)
    , mMeasurementNoise(seedOf(options.seed, kMeasurementSalt))
    , mFilterNoise(seedOf(options.seed, kFilterSalt)) {
    mSettings.headType = options.headType;
    mSettings.controlInput = options.controlInput;
    mTemperature = kAmbientC + kHeatingCPerW * kIdlePowerW; // settled at idle
    restart();
}

void PumpModel::logEvent(const QString& text) {
    mEventLog.add(mClock.ElapsedMilliseconds(), text);
}

void PumpModel::restart() {
    const bool newFirmware = mFirmwareVersion != mInstalledFirmware;
    mFirmwareVersion = mInstalledFirmware;
    mApplicationSpeedDrpm = 0;
    mOverrideActive = false;
    mActualSpeedDrpm = 0.0;
    mEnergised = false;
    mAligned = false;
    mEnergisedMs = 0;
    mPower = kIdlePowerW;
    for (std::size_t i = 0; i < kSpeedInputCount; ++i) {
        mInputsSeen[i] = mInputs[i];
    }
    sampleMeasurements();
    logEvent(QStringLiteral("Power on, firmware %1.%2.%3")
                 .arg(mFirmwareVersion.major)
                 .arg(mFirmwareVersion.minor)
                 .arg(mFirmwareVersion.patch));
    if (newFirmware && mOptions.firmwareResetsSettings) {
        resetSettings();
    }
}

void PumpModel::advance(int ms) {
    step(ms / 1000.0);
    mSinceSampleMs += ms;
    if (mSinceSampleMs >= kMeasurementPeriodMs) {
        mSinceSampleMs = 0;
        sampleMeasurements();
    }
}

bool PumpModel::stoppingFaultActive() const {
    // A temperature warning lets the pump run on; every other fault stops it.
    const std::uint32_t warningBit = 1u << catalogue::kFaultOverTemperatureWarning;
    const std::uint32_t faultBits = ((1u << (catalogue::kFaultTypeCount + 1)) - 2u);
    return (mFaults & faultBits & ~warningBit) != 0;
}

std::int32_t PumpModel::targetSpeedDrpm() const {
    if (mCoverOpen || stoppingFaultActive()) {
        return 0;
    }
    if (mPrimeInput) {
        return static_cast<std::int32_t>(mSettings.primeSpeedDrpm);
    }
    const std::int32_t application = mSettings.applicationSpeedEnable ? mApplicationSpeedDrpm : 0;
    if (mOverrideActive) {
        return application;
    }
    switch (mSettings.controlInput) {
    case 1:
        return mEnableLine ? static_cast<std::int32_t>(mSettings.enableLineSpeedDrpm) : 0;
    case 2:
        return static_cast<std::int32_t>(mCommandedDrpm[indexOf(SpeedInput::Voltage)]);
    case 3:
        return static_cast<std::int32_t>(mCommandedDrpm[indexOf(SpeedInput::Current)]);
    case 4:
        return static_cast<std::int32_t>(mCommandedDrpm[indexOf(SpeedInput::Frequency)]);
    case 5:
    case 6:
        return application;
    default:
        return 0;
    }
}

std::int32_t PumpModel::actualSpeedDrpm() const {
    return static_cast<std::int32_t>(std::lround(mActualSpeedDrpm));
}

void PumpModel::step(double seconds) {
    const auto target = static_cast<double>(targetSpeedDrpm());
    // Away from standstill the acceleration ramp applies, towards it the deceleration ramp.
    const bool speedingUp = (mActualSpeedDrpm >= 0.0 && target > mActualSpeedDrpm) ||
                            (mActualSpeedDrpm <= 0.0 && target < mActualSpeedDrpm);
    const double rateRpmPerSec =
        speedingUp ? mSettings.accelerationRpmPerSec : mSettings.decelerationRpmPerSec;
    const double maxStep = rateRpmPerSec * 10.0 * seconds;
    double change = target - mActualSpeedDrpm;
    if (!speedingUp && std::signbit(target) != std::signbit(mActualSpeedDrpm) && target != 0.0) {
        change = -mActualSpeedDrpm; // reversing: come to a stop first
    }
    mActualSpeedDrpm += qBound(-maxStep, change, maxStep);
    if (std::abs(mActualSpeedDrpm) < 0.5 && target == 0.0) {
        mActualSpeedDrpm = 0.0;
    }
    if (mActualSpeedDrpm > 0.0) {
        mDirection = 0;
    } else if (mActualSpeedDrpm < 0.0) {
        mDirection = 1;
    }

    const bool energise = target != 0.0 || mActualSpeedDrpm != 0.0;
    if (energise != mEnergised) {
        mEnergised = energise;
        mEnergisedMs = 0;
    }
    mEnergisedMs += static_cast<int>(seconds * 1000.0);
    // A stepper aligns its rotor shortly after being energised; a BLDC motor is aligned at once.
    mAligned = mEnergised && (!mOptions.isStepper() || mEnergisedMs >= kAlignmentMs);

    const double rpm = mActualSpeedDrpm / 10.0;
    mEncoderCounts += rpm / 60.0 * kEncoderCountsPerRevolution * seconds;
    const double wrapped = std::fmod(mEncoderCounts, 4294967296.0);
    mEncoder.position = static_cast<std::uint32_t>(wrapped < 0 ? wrapped + 4294967296.0 : wrapped);
    mEncoder.revolutions =
        static_cast<std::uint32_t>(std::abs(mEncoderCounts) / kEncoderCountsPerRevolution);

    mPower = mEnergised ? kRunningBasePowerW + kPowerPerRpmW * std::abs(rpm) +
                              (speedingUp ? kAccelerationPowerW : 0.0)
                        : kIdlePowerW;
    const double settleTo = kAmbientC + kHeatingCPerW * mPower + mHeat;
    mTemperature += (settleTo - mTemperature) * qMin(1.0, seconds / kThermalTimeConstantS);
    checkTemperature();
}

void PumpModel::checkTemperature() {
    const auto raiseOnce = [this](std::uint8_t type) {
        if ((mFaults & (1u << type)) == 0) {
            raiseFault(type);
        }
    };
    if (mTemperature >= kWarningTemperatureC) {
        raiseOnce(catalogue::kFaultOverTemperatureWarning);
    }
    if (mTemperature >= kShutdownTemperatureC) {
        raiseOnce(catalogue::kFaultOverTemperatureShutdown);
    }
}

double PumpModel::gaussian(QRandomGenerator& random) {
    // Box-Muller; 1 - u keeps the logarithm finite.
    const double u = 1.0 - random.generateDouble();
    const double v = random.generateDouble();
    return std::sqrt(-2.0 * std::log(u)) * std::cos(2.0 * M_PI * v);
}

void PumpModel::sampleMeasurements() {
    mReported.power = static_cast<float>(mPower + 0.05 * gaussian(mMeasurementNoise));
    mReported.temperature = static_cast<float>(mTemperature + 0.1 * gaussian(mMeasurementNoise));
    mReported.busVoltage =
        static_cast<float>(kNominalBusMv - 20.0 * mPower + 30.0 * gaussian(mMeasurementNoise));
    for (std::size_t i = 0; i < kSpeedInputCount; ++i) {
        const double noise = kInputNoiseSigma[i] * 0.25 * gaussian(mMeasurementNoise);
        mReported.inputs[i] = static_cast<float>(qMax(0.0, mInputs[i] + noise));
    }
    updateCommandedSpeeds();
}

void PumpModel::updateCommandedSpeeds() {
    for (std::size_t i = 0; i < kSpeedInputCount; ++i) {
        const SpeedRangeProfile& range = mSettings.speedRanges[i];
        const double seen = mReported.inputs[i];
        // Hysteresis: the commander follows the input only once it has moved far enough.
        if (std::abs(seen - mInputsSeen[i]) > range.hysteresis) {
            mInputsSeen[i] = seen;
        }
        const double span = static_cast<double>(range.maximumInput) - range.minimumInput;
        double fraction = span > 0.0 ? (mInputsSeen[i] - range.minimumInput) / span : 0.0;
        fraction = qBound(0.0, fraction, 1.0);
        const double speed =
            range.minimumSpeedDrpm +
            fraction * (static_cast<double>(range.maximumSpeedDrpm) - range.minimumSpeedDrpm);
        mCommandedDrpm[i] = static_cast<std::uint32_t>(std::lround(speed));
    }
}

float PumpModel::analogInput(SpeedInput input) const {
    return mReported.inputs[indexOf(input)];
}

float PumpModel::adcCurrentMv() const {
    // A 150 ohm shunt: microamperes times 0.15 gives millivolts.
    return analogInput(SpeedInput::Current) * 0.15F * mSettings.calibrations[0].slope +
           mSettings.calibrations[0].offset;
}

float PumpModel::adcVoltageMv() const {
    return analogInput(SpeedInput::Voltage) * 0.33F * mSettings.calibrations[1].slope +
           mSettings.calibrations[1].offset;
}

float PumpModel::adcBusVoltageMv() const {
    return mReported.busVoltage / 11.0F * mSettings.calibrations[2].slope +
           mSettings.calibrations[2].offset;
}

std::uint32_t PumpModel::commandedSpeedDrpm(SpeedInput input) const {
    return mCommandedDrpm[indexOf(input)];
}

std::vector<float> PumpModel::torqueTargetsA() const {
    return {0.5F, 0.8F, 1.1F, 1.4F, 1.7F, 2.0F};
}

FilterData PumpModel::nextFilterData(SpeedInput input) {
    const std::size_t i = indexOf(input);
    const std::uint32_t samples =
        input == SpeedInput::Current ? mSettings.numSamplesCurrent : mSettings.numSamplesVoltage;
    const double sigma = kInputNoiseSigma[i];
    // The filter averages `samples` raw readings, so its output wanders by sigma / sqrt(n).
    const double outputSigma = sigma / std::sqrt(static_cast<double>(samples));
    FilterData data;
    data.input = static_cast<float>(mInputs[i] + sigma * gaussian(mFilterNoise));
    data.output = static_cast<float>(mInputs[i] + outputSigma * gaussian(mFilterNoise));
    const double estimateSpread = 1.0 + 0.1 * gaussian(mFilterNoise);
    data.inputVariance = static_cast<float>(sigma * sigma * estimateSpread);
    data.outputVariance = static_cast<float>(outputSigma * outputSigma * estimateSpread);
    return data;
}

bool PumpModel::setControlInput(std::uint8_t input) {
    if (input >= catalogue::kControlInputCount) {
        return false;
    }
    if (input != mSettings.controlInput) {
        mSettings.controlInput = input;
        logEvent(QStringLiteral("Control input: %1").arg(catalogue::controlInputName(input)));
    }
    return true;
}

bool PumpModel::setApplicationSpeed(std::int32_t speedDrpm) {
    if (speedDrpm > static_cast<std::int32_t>(kMaxSpeedDrpm) ||
        speedDrpm < -static_cast<std::int32_t>(kMaxSpeedDrpm)) {
        return false;
    }
    mApplicationSpeedDrpm = speedDrpm;
    return true;
}

void PumpModel::setApplicationSpeedEnable(bool enable) {
    mSettings.applicationSpeedEnable = enable;
}

void PumpModel::setApplicationOverrideActive(bool active) {
    if (active != mOverrideActive) {
        mOverrideActive = active;
        logEvent(active ? QStringLiteral("Application override on")
                        : QStringLiteral("Application override off"));
    }
}

std::uint32_t PumpModel::limitedToHead(std::uint32_t speedDrpm, const char* what) {
    const std::uint32_t rated = catalogue::pumpHeads()[mSettings.headType].maxSpeedDrpm;
    if (!mOptions.clampSpeedsToHead || rated == 0 || speedDrpm <= rated) {
        return speedDrpm;
    }
    logEvent(QStringLiteral("%1 %2 drpm reduced to the head's rated %3 drpm")
                 .arg(QLatin1String(what))
                 .arg(speedDrpm)
                 .arg(rated));
    return rated;
}

bool PumpModel::setPrimeSpeed(std::uint32_t speedDrpm) {
    if (speedDrpm > kMaxSpeedDrpm) {
        return false;
    }
    mSettings.primeSpeedDrpm = limitedToHead(speedDrpm, "Prime speed");
    return true;
}

bool PumpModel::setAcceleration(float rpmPerSec) {
    if (!(rpmPerSec >= limits::kMinimumCelerationRpmPerSec &&
          rpmPerSec <= limits::kMaximumCelerationRpmPerSec)) {
        return false;
    }
    mSettings.accelerationRpmPerSec = rpmPerSec;
    return true;
}

bool PumpModel::setDeceleration(float rpmPerSec) {
    if (!(rpmPerSec >= limits::kMinimumCelerationRpmPerSec &&
          rpmPerSec <= limits::kMaximumCelerationRpmPerSec)) {
        return false;
    }
    mSettings.decelerationRpmPerSec = rpmPerSec;
    return true;
}

bool PumpModel::setSpeedRange(SpeedInput input, const SpeedRangeProfile& profile) {
    if (!profile.fitsWithin(limits::kSpeedRangeLimits[indexOf(input)])) {
        return false;
    }
    SpeedRangeProfile taken = profile;
    taken.minimumSpeedDrpm = limitedToHead(profile.minimumSpeedDrpm, "Speed-range minimum speed");
    taken.maximumSpeedDrpm = limitedToHead(profile.maximumSpeedDrpm, "Speed-range maximum speed");
    mSettings.speedRanges[indexOf(input)] = taken;
    updateCommandedSpeeds();
    return true;
}

void PumpModel::setDefaultSpeedRange(SpeedInput input) {
    mSettings.speedRanges[indexOf(input)] = PumpSettings{}.speedRanges[indexOf(input)];
    updateCommandedSpeeds();
}

bool PumpModel::setHysteresis(SpeedInput input, std::uint32_t hysteresis) {
    if (hysteresis > limits::kSpeedRangeLimits[indexOf(input)].hysteresis) {
        return false;
    }
    mSettings.speedRanges[indexOf(input)].hysteresis = hysteresis;
    return true;
}

bool PumpModel::setEnableLineSpeed(std::uint32_t speedDrpm) {
    if (speedDrpm < limits::kMinimumEnableLineSpeedDrpm || speedDrpm > kMaxSpeedDrpm) {
        return false;
    }
    mSettings.enableLineSpeedDrpm = limitedToHead(speedDrpm, "Enable-line speed");
    return true;
}

void PumpModel::setDefaultEnableLineSpeed() {
    mSettings.enableLineSpeedDrpm = PumpSettings{}.enableLineSpeedDrpm;
}

bool PumpModel::setNumSamples(SpeedInput input, std::uint32_t samples) {
    if (samples < limits::kMinimumNumSamples || samples > limits::kMaximumNumSamples) {
        return false;
    }
    (input == SpeedInput::Current ? mSettings.numSamplesCurrent : mSettings.numSamplesVoltage) =
        samples;
    return true;
}

bool PumpModel::setCalibration(std::size_t channel, Calibration calibration) {
    if (channel >= mSettings.calibrations.size() || !std::isfinite(calibration.slope) ||
        !std::isfinite(calibration.offset) || calibration.slope == 0.0F) {
        return false;
    }
    mSettings.calibrations[channel] = calibration;
    return true;
}

bool PumpModel::setHead(std::uint8_t headType) {
    if (headType >= catalogue::kPumpHeadCount) {
        return false;
    }
    mSettings.headType = headType;
    logEvent(
        QStringLiteral("Pump head: %1").arg(QLatin1String(catalogue::pumpHeads()[headType].name)));
    return true;
}

bool PumpModel::setTorqueIndex(std::uint8_t index) {
    if (index >= torqueTargetsA().size()) {
        return false;
    }
    mSettings.torqueIndex = index;
    logEvent(QStringLiteral("Torque index: %1").arg(index));
    return true;
}

void PumpModel::setPortSetting(std::uint8_t value) {
    mSettings.portSetting = value;
}

void PumpModel::setIpConfig(const IpConfig& config) {
    mSettings.ipConfig = config;
    logEvent(QStringLiteral("IP configuration changed"));
}

void PumpModel::resetIpConfig() {
    mSettings.ipConfig = PumpSettings{}.ipConfig;
    logEvent(QStringLiteral("IP configuration reset"));
}

void PumpModel::resetSettings() {
    const std::uint8_t head = mSettings.headType; // fitted hardware, not a setting
    mSettings = PumpSettings{};
    mSettings.headType = head;
    updateCommandedSpeeds();
    logEvent(QStringLiteral("Settings reset to defaults"));
}

bool PumpModel::raiseFault(std::uint8_t faultType) {
    if (faultType == 0 || faultType > catalogue::kFaultTypeCount) {
        return false;
    }
    mFaults |= 1u << faultType;
    logEvent(QStringLiteral("Fault: %1").arg(catalogue::faultName(faultType)));
    return true;
}

void PumpModel::acknowledgeFaults() {
    mFaults = 0;
    logEvent(QStringLiteral("Faults acknowledged"));
    // A cause that persists raises its fault again at once.
    checkTemperature();
}

void PumpModel::setCoverOpen(bool open) {
    if (open != mCoverOpen) {
        mCoverOpen = open;
        logEvent(open ? QStringLiteral("Cover opened") : QStringLiteral("Cover closed"));
    }
}

void PumpModel::setPrimeInput(bool active) {
    if (active != mPrimeInput) {
        mPrimeInput = active;
        logEvent(active ? QStringLiteral("Prime started") : QStringLiteral("Prime stopped"));
    }
}

void PumpModel::setEnableLine(bool asserted) {
    if (asserted != mEnableLine) {
        mEnableLine = asserted;
        logEvent(asserted ? QStringLiteral("Enable line asserted")
                          : QStringLiteral("Enable line released"));
    }
}

void PumpModel::setHeat(double extraDegrees) {
    mHeat = qMax(0.0, extraDegrees);
}

void PumpModel::setAnalogInput(SpeedInput input, double value) {
    mInputs[indexOf(input)] = qMax(0.0, value);
    sampleMeasurements();
}

} // namespace simulator
