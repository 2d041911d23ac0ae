#pragma once

#include "TimeWindow.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterData.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedRangeProfile.h"

#include <QObject>
#include <QTimer>

namespace halyard::device {
class SystemInterface;
}

namespace communication {

/// How much an analog input and the filter's output wander, as a speed: once a second, the peak
/// variance of the last second, as a standard deviation scaled by the slope of the input's speed
/// range (tenths of rpm per input unit). A profile of all zeros gives 0; one whose two inputs are
/// equal has no finite slope, and its figures are then not finite either (the screens say so).
class AnalogFilterVariance : public QObject {
    Q_OBJECT
    /// Input wander, tenths of rpm.
    Q_PROPERTY(float inputVarianceDrpm READ inputVarianceDrpm NOTIFY varianceUpdate)
    /// Output wander, tenths of rpm.
    Q_PROPERTY(float outputVarianceDrpm READ outputVarianceDrpm NOTIFY varianceUpdate)

public:
    static constexpr uint32_t kWindowMs = 1000;
    static constexpr int kUpdateIntervalMs = 1000;

    /// `profile` (not owned) is the caller's copy of the input's speed range, read at each
    /// update; `clock` (not owned) gives the samples' time stamps.
    AnalogFilterVariance(uint32_t samplePeriodMs, const objects::QSpeedRangeProfile& profile,
                         const halyard::device::SystemInterface& clock, QObject* parent = nullptr);

    float inputVarianceDrpm() const { return mInputVarianceDrpm; }
    float outputVarianceDrpm() const { return mOutputVarianceDrpm; }

    void addSample(const objects::AnalogFilterData& data);
    /// Starts the once-a-second update.
    void start() { mTimer.start(); }
    /// One update, as the timer makes it.
    void update();

    /// The speed that a standard deviation of √`variance` input units means under `profile`.
    static float toSpeed(float variance, const objects::QSpeedRangeProfile& profile);

signals:
    void varianceUpdate();

private:
    uint32_t now() const;

    const objects::QSpeedRangeProfile& mProfile;
    const halyard::device::SystemInterface& mClock;
    TimeWindow mInput;
    TimeWindow mOutput;
    QTimer mTimer;
    float mInputVarianceDrpm = 0.0F;
    float mOutputVarianceDrpm = 0.0F;
};

} // namespace communication
