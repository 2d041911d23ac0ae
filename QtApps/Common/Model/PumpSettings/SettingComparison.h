#pragma once

#include <QString>

namespace pumpSettings {

/// One setting of a file beside the pump's own, as a technician reads them: translated name,
/// and both values with their units.
struct SettingComparison {
    QString setting;
    QString pumpValue;
    QString fileValue;
    bool changed = false;
};

} // namespace pumpSettings
