#include "EnumerationTexts.h"

#include "Common/Protocol/Assert.h"

#include <array>

namespace communication::objects {

using halyard::pump::ControlInput;

namespace {

constexpr std::array<const char*, 11> kDeviceTypes = {
    "Unknown",
    "Stepper Analog",
    "Stepper Analog Voltage",
    "Stepper Analog Current",
    "Stepper Network",
    "Stepper Network Voltage",
    "Stepper Network Current",
    "BLDC Analog",
    "BLDC Network",
    "Stepper Analog",
    "Stepper Network",
};

constexpr std::array<const char*, 10> kMotorTypes = {
    "Unknown", "bldc",    "nema17",  "nema24a", "nema24b",
    "nema24c", "nema24d", "nema24e", "nema24f", "nema17h",
};

constexpr std::array<const char*, static_cast<std::size_t>(ControlInput::Count)> kControlInputs = {
    "None", "Enable line", "Voltage", "Current", "Frequency", "Application", "Network",
};

constexpr std::array<const char*, 3> kSpeedChanges = {"No change", "Increase", "Decrease"};

struct CatalogueRow {
    const char* name;
    std::uint32_t maxSpeedRpm;
};

// The pump-head catalogue, in the pump's head numbering.
constexpr std::array<CatalogueRow, halyard::pump::kPumpHeadCount> kPumpHeads = {{
    {"None", 0},       {"BW-S10", 600},   {"BW-S10HP", 600}, {"BW-S14", 600},   {"BW-S16", 600},
    {"BW-S25", 500},   {"BW-S25HP", 500}, {"BW-S17", 500},   {"BW-S18", 450},   {"BW-S35", 450},
    {"BW-S36", 450},   {"BW-T13", 400},   {"BW-T14", 400},   {"BW-T16", 400},   {"BW-T25", 350},
    {"BW-T17", 350},   {"BW-T18", 350},   {"BW-M06x4", 300}, {"BW-M13x4", 300}, {"BW-M14x4", 300},
    {"BW-M16x4", 300}, {"BW-F73", 250},   {"BW-F82", 250},   {"BW-F88", 200},   {"BW-X24", 165},
    {"BW-X35", 165},   {"BW-X36", 165},
}};

} // namespace

QString DeviceTypeText(std::uint8_t deviceType) {
    return deviceType < kDeviceTypes.size() ? QString::fromLatin1(kDeviceTypes[deviceType])
                                            : QStringLiteral("Error");
}

QString MotorTypeText(std::uint8_t motorType) {
    return motorType < kMotorTypes.size() ? QString::fromLatin1(kMotorTypes[motorType])
                                          : QStringLiteral("Error");
}

QString ControlInputText(ControlInput controlInput) {
    HALYARD_ASSERT((size_t)controlInput < (size_t)ControlInput::Count);
    return QString::fromLatin1(kControlInputs[static_cast<std::size_t>(controlInput)]);
}

std::optional<ControlInput> ControlInputFromText(const QString& text) {
    for (std::size_t i = 0; i < kControlInputs.size(); ++i) {
        if (QString::fromLatin1(kControlInputs[i]).startsWith(text)) {
            return static_cast<ControlInput>(i);
        }
    }
    return std::nullopt;
}

QString SpeedChangeText(std::uint8_t speedChange) {
    return speedChange < kSpeedChanges.size() ? QString::fromLatin1(kSpeedChanges[speedChange])
                                              : QStringLiteral("Out of range");
}

PumpHeadEntry PumpHeadCatalogueEntry(std::uint8_t headType) {
    if (headType >= kPumpHeads.size()) {
        return {};
    }
    return {QString::fromLatin1(kPumpHeads[headType].name), kPumpHeads[headType].maxSpeedRpm};
}

} // namespace communication::objects
