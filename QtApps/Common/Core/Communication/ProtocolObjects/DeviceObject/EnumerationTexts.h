#pragma once

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpEnums.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace communication::objects {

/// Texts of the device and pump details, for the screens and the settings file. Fixed texts: they
/// are compared with saved files, so they are not translated here.

/// Device type (DeviceDetails::deviceType, PumpDetails::pumpType): "Error" past the table.
/// Types 9 and 10 show the same texts as 1 and 4 on purpose: a settings file saved from one
/// fits a pump of the other.
QString DeviceTypeText(std::uint8_t deviceType);

/// Motor type (PumpDetails::motorType): "Error" past the table.
QString MotorTypeText(std::uint8_t motorType);

/// Control input text. A value of Count or more is a programming fault and raises the assertion
/// error.
QString ControlInputText(halyard::pump::ControlInput controlInput);

/// The first control input whose text begins with `text` (compared over the length of `text`),
/// or nothing when none does.
std::optional<halyard::pump::ControlInput> ControlInputFromText(const QString& text);

/// Speed change: "Out of range" for an unknown value.
QString SpeedChangeText(std::uint8_t speedChange);

/// One entry of the pump-head catalogue, indexed by PumpDetails::headType.
struct PumpHeadEntry {
    QString name;
    std::uint32_t maxSpeedRpm = 0; ///< the catalogue's second value: the head's rated speed
};

/// The catalogue entry of a pump head; an empty entry for an index of 27 or more.
PumpHeadEntry PumpHeadCatalogueEntry(std::uint8_t headType);

} // namespace communication::objects
