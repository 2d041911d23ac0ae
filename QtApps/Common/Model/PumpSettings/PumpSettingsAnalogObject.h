#pragma once

#include "PumpSettingsSection.h"

namespace communication {
class PumpValues;
}

namespace pumpSettings::analog {

/// The "analog" section of a pump without a network module: the control input, the enable-line
/// speed, and for each analog input its speed range (the two points of the line from input to
/// speed; the pump keeps its own hysteresis) and, for current and voltage, the filter's sample
/// count.
class PumpSettingsAnalogObject final : public PumpSettingsSection {
    Q_OBJECT

public:
    explicit PumpSettingsAnalogObject(communication::PumpValues& values, QObject* parent = nullptr);

    static const SectionLayout& layout();
};

} // namespace pumpSettings::analog
