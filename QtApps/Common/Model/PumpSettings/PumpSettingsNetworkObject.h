#pragma once

#include "PumpSettingsSection.h"

namespace communication {
class PumpValues;
}

namespace pumpSettings::network {

/// The "network" section of a pump with a network module: its IP configuration (address,
/// subnet mask and gateway in dotted form, and whether it takes them by DHCP).
class PumpSettingsNetworkObject final : public PumpSettingsSection {
    Q_OBJECT

public:
    explicit PumpSettingsNetworkObject(communication::PumpValues& values,
                                       QObject* parent = nullptr);

    static const SectionLayout& layout();
};

} // namespace pumpSettings::network
