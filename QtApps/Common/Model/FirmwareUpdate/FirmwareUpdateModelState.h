#pragma once

#include <QString>

#include <cstdint>

namespace firmwareUpdate {

/// Where a firmware update stands, as the screen shows it.
enum class FirmwareUpdateModelState : int {
    NotReady = 0,     ///< no matching bundle, or no pump
    Ready = 1,        ///< a bundle with images for the connected pump is loaded
    Updating = 2,     ///< images are being transferred
    TimedOut = 3,     ///< the pump stopped answering or asking
    Disconnected = 4, ///< the session ended during the update
    Failed = 5,       ///< the pump refused a request or reported a failed stage
    Succeeded = 6,    ///< every image verified; also shown once the pump is back
    Rebooting = 7,    ///< the pump restarts into its new firmware
};

/// The state's translated status text.
QString StateText(FirmwareUpdateModelState state);
/// The pump's stage (halyard::firmwareUpdate::FirmwareUpdateStage, raw) as the screen shows it,
/// translated; "Unknown" for a stage the application does not know.
QString StageText(std::uint8_t stage);

} // namespace firmwareUpdate
