#pragma once

#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedRangeProfile.h"

#include <QObject>

namespace communication {
class PumpSpeedRangeBase;
}

namespace speedResolution {

/// Speed resolution of the frequency input. The pump measures the input period by counting a
/// 90 MHz clock, so one step is one tick of the difference between the two input periods.
class SpeedResolutionFrequency : public QObject {
    Q_OBJECT

public:
    explicit SpeedResolutionFrequency(communication::PumpSpeedRangeBase* frequencySpeedRange,
                                      QObject* parent = nullptr);

signals:
    void speedResolutionUpdate(uint speedResolutionDrpm);

public slots:
    /// Inputs below 2 Hz have no meaningful period difference: nothing is emitted.
    void onSpeedRangeUpdate(communication::objects::QSpeedRangeProfile profile);
};

} // namespace speedResolution
