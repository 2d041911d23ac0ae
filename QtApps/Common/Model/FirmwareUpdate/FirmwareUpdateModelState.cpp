#include "FirmwareUpdateModelState.h"

#include <QCoreApplication>

#include <iterator>

namespace firmwareUpdate {

QString StateText(FirmwareUpdateModelState state) {
    switch (state) {
    case FirmwareUpdateModelState::NotReady:
        return QCoreApplication::translate("FirmwareUpdateModelState",
                                           "Firmware not loaded or not connected");
    case FirmwareUpdateModelState::Ready:
        return QCoreApplication::translate("FirmwareUpdateModelState", "Ready to update");
    case FirmwareUpdateModelState::Updating:
        return QCoreApplication::translate("FirmwareUpdateModelState", "Updating...");
    case FirmwareUpdateModelState::TimedOut:
        return QCoreApplication::translate("FirmwareUpdateModelState",
                                           "Timed out waiting for response");
    case FirmwareUpdateModelState::Disconnected:
        return QCoreApplication::translate("FirmwareUpdateModelState", "Disconnected");
    case FirmwareUpdateModelState::Failed:
        return QCoreApplication::translate("FirmwareUpdateModelState", "Update failed");
    case FirmwareUpdateModelState::Succeeded:
        return QCoreApplication::translate("FirmwareUpdateModelState", "Update succeeded!");
    case FirmwareUpdateModelState::Rebooting:
        return QCoreApplication::translate("FirmwareUpdateModelState", "Rebooting...");
    }
    return {};
}

QString StageText(std::uint8_t stage) {
    // Listed for the translation tools; translated below in their context.
    static const char* const kTexts[] = {
        QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Ready"),
        QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Erasing"),
        QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Erase failed"),
        QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Programming"),
        QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Program failed"),
        QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Verifying"),
        QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Verify failed"),
        QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Failed"),
        QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Success"),
    };
    const char* text = stage < std::size(kTexts)
                           ? kTexts[stage]
                           : QT_TRANSLATE_NOOP("FirmwareUpdateStageDescription", "Unknown");
    return QCoreApplication::translate("FirmwareUpdateStageDescription", text);
}

} // namespace firmwareUpdate
