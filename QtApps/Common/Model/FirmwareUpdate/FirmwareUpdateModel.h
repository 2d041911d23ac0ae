#pragma once

#include "FirmwareBundle.h"
#include "FirmwareUpdateView.h"

#include "Common/Protocol/MessageTypes.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/FirmwareUpdateStatus.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <optional>

namespace common {
class ArchiveReaderInterface;
}
namespace communication {
class ProtocolObjectContainer;
class PumpValues;
namespace objects {
class FirmwareUpdateObject;
struct PumpDetails;
} // namespace objects
} // namespace communication

namespace firmwareUpdate {

/// Loads a firmware bundle, picks the images for the connected pump and transfers them through
/// the pump's firmware-update object, one image after the other in the manifest's order. It
/// lives on the thread of the proxies and pump values; the controller reaches it only through
/// queued calls and hears from it through viewChanged and errorOccurred.
///
/// The pump drives each transfer (docs/firmware-update-object.md): the model starts an image,
/// answers every data request with the asked-for bytes, asks for verification once the pump
/// has programmed the whole image, and goes on to the next image on Success. After the last
/// image it resets the pump and asks for a new session; "Rebooting..." lasts until the pump is
/// connected again. Outcomes:
/// - a pump stage Erase failed, Program failed, Verify failed or Failed, a refused request, or a
///   data request beyond the image: Failed ("Update failed");
/// - a request of the update object unanswered four times, or nothing from the pump's update
///   object for kPumpSilenceLimitMs (kEraseSilenceLimitMs while it erases): TimedOut, after
///   which the pump is told to stop;
/// - the session lost during the transfer: Disconnected;
/// - a pump not back within kRebootLimitMs of its reset: TimedOut.
/// The bundle stays loaded after each of them, so the update can be started again.
///
/// Images are picked by the pump's part number: an image is for the pump when its "device",
/// trimmed, equals the trimmed part number. Progress is the share of the picked images' bytes
/// that the pump reports programmed.
class FirmwareUpdateModel final : public QObject {
    Q_OBJECT

public:
    static constexpr int kPumpSilenceLimitMs = 5000;
    static constexpr int kEraseSilenceLimitMs = 30000;
    /// A pump not connected again this long after its reset is reported as timed out.
    static constexpr int kRebootLimitMs = 60000;

    FirmwareUpdateModel(common::ArchiveReaderInterface& reader,
                        communication::ProtocolObjectContainer& objects,
                        communication::PumpValues& values, QObject* parent = nullptr);

    const FirmwareUpdateView& view() const { return mView; }

signals:
    void viewChanged(firmwareUpdate::FirmwareUpdateView view);
    void errorOccurred(QString description);
    /// The pump took the reset (or went quiet doing so): its session is gone and a new one is
    /// needed.
    void reconnectRequested();
    /// Resets the pump (connected, queued, to PumpReset::reset).
    void resetRequested();

public slots:
    /// Reads and checks the bundle at `path` (a local file path).
    void loadBundle(const QString& path);
    void startUpdate();
    void setPumpConnected(bool connected);

private:
    struct Piece {
        std::uint8_t bank;
        std::uint32_t offset;
        std::uint16_t length;
    };

    void onPumpDetails(const communication::objects::PumpDetails& details);
    void requestDetails();
    void selectImages();
    void beginImage();
    void onRequestAccepted(std::uint8_t attribute, std::uint8_t operation);
    void onRequestRefused(std::uint8_t attribute, std::uint8_t operation,
                          halyard::protocol::message::Status status);
    void onRequestFailed(std::uint8_t attribute, std::uint8_t operation);
    void onDataRequest(std::uint8_t bank, std::uint32_t offset, std::uint16_t length);
    void onStatusUpdate(const halyard::firmwareUpdate::FirmwareUpdateStatus& status);
    void sendBacklog();
    void onImageVerified();
    void onResetDone();
    void onPumpSilent();
    void fail(FirmwareUpdateModelState state, const QString& cause, bool stopPump);
    void reportError(const QString& description);
    void armWatchdog();
    const FirmwareBundle::ImageType& currentImage() const { return mSelected.at(mImageIndex); }
    void publish();

    common::ArchiveReaderInterface& mReader;
    communication::objects::FirmwareUpdateObject& mProxy;
    communication::PumpValues& mValues;

    std::optional<FirmwareBundle> mBundle;
    QList<FirmwareBundle::ImageType> mSelected;
    QString mPartNumber;
    bool mConnected = false;
    bool mDetailsKnown = false;
    bool mDetailsRequested = false;
    /// No image fits mPartNumber, and the pump is being asked for its identity once more.
    bool mConfirmingModel = false;
    FirmwareUpdateModelState mState = FirmwareUpdateModelState::NotReady;
    QString mErrorDescription;

    // The transfer.
    bool mUpdating = false;
    qsizetype mImageIndex = 0;
    bool mStartAccepted = false;
    bool mVerifyRequested = false;
    bool mAwaitingReset = false;
    std::optional<std::uint8_t> mStage;
    quint64 mTotalBytes = 0;
    quint64 mFinishedBytes = 0;
    std::uint32_t mImageBytesDone = 0;
    QList<Piece> mBacklog;
    // Children, so that they move to the link's thread with the model.
    QTimer mBacklogTimer;
    QTimer mWatchdog;

    FirmwareUpdateView mView;
};

} // namespace firmwareUpdate
