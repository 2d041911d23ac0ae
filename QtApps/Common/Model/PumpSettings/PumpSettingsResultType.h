#pragma once

#include <QMetaType>

namespace pumpSettings {

/// How a save or a load of a pump settings file ended. The numbers are the ones the screens and
/// the logs know; PumpSettings::resultText gives the translated text of each.
enum class PumpSettingsResultType {
    Success = 1,
    SuccessRebooting = 2,
    CouldNotOpenFile = 3,
    PumpResponseTimeout = 4,
    CouldNotApplyAllSettings = 5,
    InvalidFileFormat = 6,
    IncompatiblePumpSettings = 7,
};

} // namespace pumpSettings

Q_DECLARE_METATYPE(pumpSettings::PumpSettingsResultType)
