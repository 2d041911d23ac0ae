#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedRangeProfile.h"

#include <QObject>
#include <QtQml/qqml.h>

#include <array>
#include <cstdint>

namespace speedResolution {
class SpeedResolutionBase;
class SpeedResolutionFrequency;
} // namespace speedResolution

namespace communication {

class PumpValues;

/// The analog speed ranges for the screens ("cpp.PumpSpeedRangeController"): for the current,
/// voltage and frequency inputs the profile (two input points mapped onto two speeds), its
/// limits, the speed resolution and the target speed the pump derives from the input; and the
/// enable-line speed with its limits. Speeds are tenths of rpm; inputs microamperes, millivolts
/// or hertz. Every property is a copy of what the pump last reported.
class PumpSpeedRangeController final : public QObject,
                                       public QmlSingleton<PumpSpeedRangeController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(communication::objects::QSpeedRangeProfile currentProfileDrpm READ currentProfileDrpm
                   NOTIFY currentProfileChanged)
    Q_PROPERTY(communication::objects::QSpeedRangeProfile currentLimitsDrpm READ currentLimitsDrpm
                   NOTIFY currentLimitsChanged)
    /// Tenths of rpm one measurement step of the current input is worth (0 for a degenerate
    /// profile).
    Q_PROPERTY(double currentSpeedResolutionDrpm READ currentSpeedResolutionDrpm NOTIFY
                   currentSpeedResolutionChanged)
    Q_PROPERTY(
        int currentTargetSpeedDrpm READ currentTargetSpeedDrpm NOTIFY currentTargetSpeedChanged)
    Q_PROPERTY(communication::objects::QSpeedRangeProfile frequencyProfileDrpm READ
                   frequencyProfileDrpm NOTIFY frequencyProfileChanged)
    Q_PROPERTY(communication::objects::QSpeedRangeProfile frequencyLimitsDrpm READ
                   frequencyLimitsDrpm NOTIFY frequencyLimitsChanged)
    Q_PROPERTY(double frequencySpeedResolutionDrpm READ frequencySpeedResolutionDrpm NOTIFY
                   frequencySpeedResolutionChanged)
    Q_PROPERTY(int frequencyTargetSpeedDrpm READ frequencyTargetSpeedDrpm NOTIFY
                   frequencyTargetSpeedChanged)
    Q_PROPERTY(communication::objects::QSpeedRangeProfile voltageProfileDrpm READ voltageProfileDrpm
                   NOTIFY voltageProfileChanged)
    Q_PROPERTY(communication::objects::QSpeedRangeProfile voltageLimitsDrpm READ voltageLimitsDrpm
                   NOTIFY voltageLimitsChanged)
    Q_PROPERTY(double voltageSpeedResolutionDrpm READ voltageSpeedResolutionDrpm NOTIFY
                   voltageSpeedResolutionChanged)
    Q_PROPERTY(
        int voltageTargetSpeedDrpm READ voltageTargetSpeedDrpm NOTIFY voltageTargetSpeedChanged)
    /// The speed used while the enable line is asserted (enable-line control), tenths of rpm.
    Q_PROPERTY(
        int enableLineTargetSpeedDrpm READ enableLineTargetSpeedDrpm NOTIFY enableLineSpeedChanged)
    Q_PROPERTY(int enableLineLowerLimitDrpm READ enableLineLowerLimitDrpm NOTIFY
                   enableLineLowerLimitChanged)
    Q_PROPERTY(int enableLineUpperLimitDrpm READ enableLineUpperLimitDrpm NOTIFY
                   enableLineUpperLimitChanged)

public:
    PumpSpeedRangeController(PumpValues& values,
                             speedResolution::SpeedResolutionBase& currentResolution,
                             speedResolution::SpeedResolutionBase& voltageResolution,
                             speedResolution::SpeedResolutionFrequency& frequencyResolution,
                             QObject* parent = nullptr);

    const objects::QSpeedRangeProfile& currentProfileDrpm() const { return range(Current).profile; }
    const objects::QSpeedRangeProfile& currentLimitsDrpm() const { return range(Current).limits; }
    uint currentSpeedResolutionDrpm() const { return range(Current).resolution; }
    int32_t currentTargetSpeedDrpm() const { return range(Current).targetSpeed; }
    const objects::QSpeedRangeProfile& frequencyProfileDrpm() const {
        return range(Frequency).profile;
    }
    const objects::QSpeedRangeProfile& frequencyLimitsDrpm() const {
        return range(Frequency).limits;
    }
    uint32_t frequencySpeedResolutionDrpm() const { return range(Frequency).resolution; }
    int32_t frequencyTargetSpeedDrpm() const { return range(Frequency).targetSpeed; }
    const objects::QSpeedRangeProfile& voltageProfileDrpm() const { return range(Voltage).profile; }
    const objects::QSpeedRangeProfile& voltageLimitsDrpm() const { return range(Voltage).limits; }
    uint voltageSpeedResolutionDrpm() const { return range(Voltage).resolution; }
    int32_t voltageTargetSpeedDrpm() const { return range(Voltage).targetSpeed; }
    int32_t enableLineTargetSpeedDrpm() const { return mEnableLineSpeedDrpm; }
    int32_t enableLineLowerLimitDrpm() const { return mEnableLineLowerLimitDrpm; }
    int32_t enableLineUpperLimitDrpm() const { return mEnableLineUpperLimitDrpm; }

signals:
    void voltageTargetSpeedChanged();
    void voltageSpeedResolutionChanged();
    void currentTargetSpeedChanged();
    void currentSpeedResolutionChanged();
    void frequencyTargetSpeedChanged();
    void frequencySpeedResolutionChanged();
    void enableLineSpeedChanged();
    void currentProfileChanged();
    void currentLimitsChanged();
    void frequencyProfileChanged();
    void frequencyLimitsChanged();
    void voltageProfileChanged();
    void voltageLimitsChanged();
    void enableLineLowerLimitChanged();
    void enableLineUpperLimitChanged();

public slots:
    /// Subscribes the three target speeds.
    void subscribe();
    void unsubscribe();
    void getAllSpeedRanges();
    void getAllSpeedRangeLimits();
    void setAllSpeedRangeDefaults();
    /// The setters take the screens' numbers; a figure that is not a whole number within its
    /// 32-bit field is refused (logged, false returned, nothing sent).
    bool setCurrentSpeedRangeDrpm(double minSpeedDrpm, double maxSpeedDrpm, double minInput,
                                  double maxInput, double hysteresis);
    bool setCurrentHysteresis(double hysteresis);
    bool setFrequencySpeedRangeDrpm(double minSpeedDrpm, double maxSpeedDrpm, double minInput,
                                    double maxInput, double hysteresis);
    bool setFrequencyHysteresis(double hysteresis);
    bool setVoltageSpeedRangeDrpm(double minSpeedDrpm, double maxSpeedDrpm, double minInput,
                                  double maxInput, double hysteresis);
    bool setVoltageHysteresis(double hysteresis);
    bool setEnableLineSpeedDrpm(double speedDrpm);
    void getEnableLineSpeed();
    void getEnableLineLimits();

    void pumpVoltageTargetSpeed_targetSpeedChanged(uint32_t speedDrpm);
    void speedResolutionVoltage_speedResolutionChanged(uint32_t speedResolutionDrpm);
    void pumpCurrentTargetSpeed_targetSpeedChanged(uint32_t speedDrpm);
    void speedResolutionCurrent_speedResolutionChanged(uint32_t speedResolutionDrpm);
    void pumpFrequencyTargetSpeed_targetSpeedChanged(uint32_t speedDrpm);
    void speedResolutionFrequency_speedResolutionChanged(uint speedResolutionDrpm);
    void pumpEnableLineSpeed_getEnableLineSpeedResponse(uint32_t speedDrpm);
    void pumpEnableLineLimits_getEnableLineLimitResponse(uint32_t lowerLimitDrpm,
                                                         uint32_t upperLimitDrpm);
    void pumpCurrentSpeedRange_getSpeedRangeResponse(
        const communication::objects::QSpeedRangeProfile& profile);
    void pumpCurrentSpeedRangeLimits_getSpeedRangeLimitsResponse(
        const communication::objects::QSpeedRangeProfile& limits);
    void pumpFrequencySpeedRange_getSpeedRangeResponse(
        const communication::objects::QSpeedRangeProfile& profile);
    void pumpFrequencySpeedRangeLimits_getSpeedRangeLimitsResponse(
        const communication::objects::QSpeedRangeProfile& limits);
    void pumpVoltageSpeedRange_getSpeedRangeResponse(
        const communication::objects::QSpeedRangeProfile& profile);
    void pumpVoltageSpeedRangeLimits_getSpeedRangeLimitsResponse(
        const communication::objects::QSpeedRangeProfile& limits);

private:
    enum Input { Current, Voltage, Frequency };
    /// What the pump reported of one analog input.
    struct Range {
        objects::QSpeedRangeProfile profile;
        objects::QSpeedRangeProfile limits;
        uint resolution = 0;
        int32_t targetSpeed = 0;
    };

    const Range& range(Input input) const { return mRanges[input]; }
    /// Sets the speed range of `input` from the five figures, when all of them fit.
    bool setSpeedRange(Input input, double minSpeedDrpm, double maxSpeedDrpm, double minInput,
                       double maxInput, double hysteresis);
    bool setHysteresis(Input input, double hysteresis);

    PumpValues& mValues;
    std::array<Range, 3> mRanges{};
    int32_t mEnableLineSpeedDrpm = 0;
    int32_t mEnableLineLowerLimitDrpm = 0;
    int32_t mEnableLineUpperLimitDrpm = 0;
};

/// Tells the QML engine and tools (qmllint, the QML compiler) the fields of the record that
/// this controller hands to the screens, so that a screen reading a field that does not exist fails
/// the build.
struct QmlSpeedRangeProfile {
    Q_GADGET
    QML_FOREIGN(communication::objects::QSpeedRangeProfile)
    QML_ANONYMOUS
};

} // namespace communication
