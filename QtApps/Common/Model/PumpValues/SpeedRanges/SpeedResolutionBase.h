#pragma once

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedRangeProfile.h"

#include <QObject>

#include <cstdint>

namespace communication {
class PumpSpeedRangeBase;
}

namespace speedResolution {

/// Speed resolution of an analog input whose measurement has a fixed number of steps over a
/// fixed input span: how many tenths of rpm one measurement step is worth with the profile
/// the pump holds. A new resolution is emitted whenever the profile is read.
class SpeedResolutionBase : public QObject {
    Q_OBJECT

public:
    /// `speedRange` (not owned, may be null) is the speed range value of this input.
    SpeedResolutionBase(uint32_t inputSpan, uint32_t stepsOverSpan,
                        communication::PumpSpeedRangeBase* speedRange, QObject* parent = nullptr);

signals:
    void speedResolutionUpdate(uint speedResolutionDrpm);

protected slots:
    void onSpeedRangeUpdate(communication::objects::QSpeedRangeProfile profile);

private:
    const uint32_t mInputSpan;
    const uint32_t mStepsOverSpan;
};

/// Truncates toward zero into 32 bits. A quotient that is infinite, not a number or out of
/// range (a profile whose two inputs are equal) gives 0 on every platform.
uint toResolution(double value);

} // namespace speedResolution
