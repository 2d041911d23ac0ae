#include "PumpCatalogue.h"

namespace simulator::catalogue {

const std::array<PumpHead, kPumpHeadCount>& pumpHeads() {
    // Mirrors the product catalogue of the pump heads: the same names in the pump's head
    // numbering, so the application finds the fitted head's name by its index and knows every
    // listed name. The catalogue rates speed in rpm; the list carries tenths of rpm.
    // The S and T heads fit either motor; the four-channel M heads dose small volumes and need
    // the stepper's fine steps; the large-bore F and X heads need the BLDC motor's torque.
    static const std::array<PumpHead, kPumpHeadCount> heads = {{
        {"None", 0, 1, 1},        {"BW-S10", 6000, 1, 1},   {"BW-S10HP", 6000, 1, 1},
        {"BW-S14", 6000, 1, 1},   {"BW-S16", 6000, 1, 1},   {"BW-S25", 5000, 1, 1},
        {"BW-S25HP", 5000, 1, 1}, {"BW-S17", 5000, 1, 1},   {"BW-S18", 4500, 1, 1},
        {"BW-S35", 4500, 1, 1},   {"BW-S36", 4500, 1, 1},   {"BW-T13", 4000, 1, 1},
        {"BW-T14", 4000, 1, 1},   {"BW-T16", 4000, 1, 1},   {"BW-T25", 3500, 1, 1},
        {"BW-T17", 3500, 1, 1},   {"BW-T18", 3500, 1, 1},   {"BW-M06x4", 3000, 0, 1},
        {"BW-M13x4", 3000, 0, 1}, {"BW-M14x4", 3000, 0, 1}, {"BW-M16x4", 3000, 0, 1},
        {"BW-F73", 2500, 1, 0},   {"BW-F82", 2500, 1, 0},   {"BW-F88", 2000, 1, 0},
        {"BW-X24", 1650, 1, 0},   {"BW-X35", 1650, 1, 0},   {"BW-X36", 1650, 1, 0},
    }};
    return heads;
}

int pumpHeadIndex(const QString& name) {
    const auto& heads = pumpHeads();
    for (std::size_t i = 0; i < heads.size(); ++i) {
        if (name == QLatin1String(heads[i].name)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

QString faultName(std::uint8_t faultType) {
    static const char* const names[kFaultTypeCount] = {
        "Overvoltage",
        "Undervoltage",
        "Overcurrent",
        "Software",
        "Stall",
        "Over temperature warning",
        "Over temperature shutdown",
        "Inverter VDS overcurrent",
        "Inverter sense amplifier overcurrent",
        "Inverter under voltage lockout",
        "Inverter gate drive",
        "Inverter charge pump undervoltage",
        "Voltage range",
        "Speed",
    };
    if (faultType == 0 || faultType > kFaultTypeCount) {
        return QStringLiteral("Unknown fault %1").arg(faultType);
    }
    return QLatin1String(names[faultType - 1]);
}

QString controlInputName(std::uint8_t controlInput) {
    static const char* const names[kControlInputCount] = {
        "None", "Enable line", "Voltage", "Current", "Frequency", "Application", "Network",
    };
    return controlInput < kControlInputCount ? QLatin1String(names[controlInput])
                                             : QStringLiteral("Invalid");
}

} // namespace simulator::catalogue
