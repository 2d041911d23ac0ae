#pragma once

#include <cstdint>

namespace halyard::firmwareUpdate {

/// The pump's stage in programming one image, as its status updates report it.
enum class FirmwareUpdateStage : std::uint8_t {
    Ready = 0,
    Erasing = 1,
    EraseFailed = 2,
    Programming = 3,
    ProgramFailed = 4,
    Verifying = 5,
    VerifyFailed = 6,
    Failed = 7,
    Success = 8,
};

/// One status update of the pump's firmware-update object (10 bytes on the wire).
struct FirmwareUpdateStatus {
    std::uint8_t stage = 0; ///< FirmwareUpdateStage, kept raw: the pump may report others
    std::uint8_t bank = 0;
    std::uint32_t bytesDone = 0;
    std::uint32_t imageSize = 0;

    /// Progress of the image in whole percent.
    std::uint32_t Percent() const {
        return imageSize == 0 ? 0U
                              : static_cast<std::uint32_t>(static_cast<std::uint64_t>(bytesDone) *
                                                           100U / imageSize);
    }
};

} // namespace halyard::firmwareUpdate
