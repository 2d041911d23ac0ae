#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace pumpSettings {

/// An IPv4 address in the settings file's form: four decimal numbers 0 to 255, separated by
/// dots, nothing else (no leading zeros that might read as octal, no shortened forms). The
/// number is in host order: 192.168.0.10 is 0xC0A8000A.
std::optional<std::uint32_t> parseDottedAddress(const QString& text);
QString dottedAddress(std::uint32_t address);

} // namespace pumpSettings
