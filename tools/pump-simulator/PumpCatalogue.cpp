#include "PumpCatalogue.h"

namespace simulator::catalogue {

const std::array<PumpHead, kPumpHeadCount>& pumpHeads() {
    // The micro heads need the stepper's fine steps, the hose heads the BLDC motor's torque.
    static const std::array<PumpHead, kPumpHeadCount> heads = {{
        {"Micro 0.5", 6000, 0, 1},   {"Micro 0.8", 6000, 0, 1},   {"Micro 1.6", 6000, 0, 1},
        {"Micro 3.2", 6000, 0, 1},   {"Micro 4.8", 5000, 0, 1},   {"Multi 2x0.8", 4000, 1, 1},
        {"Multi 2x1.6", 4000, 1, 1}, {"Multi 4x0.8", 4000, 1, 1}, {"Multi 4x1.6", 4000, 1, 1},
        {"Std 3.2", 4000, 1, 1},     {"Std 4.8", 4000, 1, 1},     {"Std 6.4", 4000, 1, 1},
        {"Std 8.0", 3500, 1, 1},     {"Std 9.6", 3500, 1, 1},     {"Flow 6.4", 3000, 1, 1},
        {"Flow 8.0", 3000, 1, 1},    {"Flow 9.6", 3000, 1, 1},    {"Flow 12.7", 2500, 1, 1},
        {"Flow 15.9", 2500, 1, 1},   {"Flow 19.0", 2000, 1, 1},   {"Hose 10", 1500, 1, 0},
        {"Hose 15", 1500, 1, 0},     {"Hose 20", 1200, 1, 0},     {"Hose 25", 1000, 1, 0},
        {"Cass 3x1.0", 3000, 1, 1},  {"Cass 6x1.0", 3000, 1, 1},  {"Test head", 6000, 1, 1},
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
