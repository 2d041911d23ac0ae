#include "FirmwareUpdateModel.h"

#include "ArchiveReaderInterface.h"

#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/FirmwareImageCrc32.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/FirmwareUpdateObject.h"
#include "QtApps/Common/Core/Communication/ProtocolRequestLogWrapper.h"
#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Model/PumpValues/PumpDetailsGetAll.h"
#include "QtApps/Common/Model/PumpValues/PumpReset.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

namespace firmwareUpdate {

using communication::PumpDetailsGetAll;
using communication::PumpReset;
using communication::objects::FirmwareUpdateObject;
using halyard::firmwareUpdate::FirmwareUpdateStage;
using halyard::firmwareUpdate::FirmwareUpdateStatus;
namespace msg = halyard::protocol::message;

namespace {

constexpr int kBacklogRetryMs = 1;
// A request's answer, late or repeated, comes within its time-out.
constexpr int kConfirmModelDelayMs = communication::ProtocolRequestLogWrapper::kTimeoutMs;

bool IsOperation(std::uint8_t raw, msg::Operation operation) {
    return raw == static_cast<std::uint8_t>(operation);
}

} // namespace

FirmwareUpdateModel::FirmwareUpdateModel(common::ArchiveReaderInterface& reader,
                                         communication::ProtocolObjectContainer& objects,
                                         communication::PumpValues& values, QObject* parent)
    : QObject(parent)
    , mReader(reader)
    , mProxy(objects.get<FirmwareUpdateObject>())
    , mValues(values)
    , mBacklogTimer(this)
    , mWatchdog(this) {
    qRegisterMetaType<FirmwareUpdateView>();
    connect(&mProxy, &FirmwareUpdateObject::dataRequest, this, &FirmwareUpdateModel::onDataRequest);
    connect(&mProxy, &FirmwareUpdateObject::statusUpdate, this,
            &FirmwareUpdateModel::onStatusUpdate);
    connect(&mProxy, &FirmwareUpdateObject::requestAccepted, this,
            &FirmwareUpdateModel::onRequestAccepted);
    connect(&mProxy, &FirmwareUpdateObject::requestRefused, this,
            &FirmwareUpdateModel::onRequestRefused);
    connect(&mProxy, &FirmwareUpdateObject::requestFailed, this,
            &FirmwareUpdateModel::onRequestFailed);

    auto& details = values.get<PumpDetailsGetAll>();
    connect(&details, &PumpDetailsGetAll::getAllResponse, this,
            &FirmwareUpdateModel::onPumpDetails);
    connect(&details, &PumpDetailsGetAll::getValueAborted, this, [this] {
        mDetailsRequested = false;
        if (mConfirmingModel && mBundle && !mUpdating) {
            selectImages(); // no second answer: the first one stands
        }
    });
    auto& reset = values.get<PumpReset>();
    connect(&reset, &PumpReset::setSuccess, this, &FirmwareUpdateModel::onResetDone);
    // A pump that restarts before its acknowledgement gets out looks like one that never
    // answered: it has all the same taken the images, so it is waited for all the same.
    connect(&reset, &PumpReset::setValueAborted, this, &FirmwareUpdateModel::onResetDone);
    // Queued, so that the acknowledgement of the last status update goes out first.
    connect(this, &FirmwareUpdateModel::resetRequested, &reset, &PumpReset::reset,
            Qt::QueuedConnection);

    mBacklogTimer.setSingleShot(true);
    mBacklogTimer.setInterval(kBacklogRetryMs);
    connect(&mBacklogTimer, &QTimer::timeout, this, &FirmwareUpdateModel::sendBacklog);
    mWatchdog.setSingleShot(true);
    connect(&mWatchdog, &QTimer::timeout, this, &FirmwareUpdateModel::onPumpSilent);
}

void FirmwareUpdateModel::loadBundle(const QString& path) {
    if (mUpdating || mState == FirmwareUpdateModelState::Rebooting) {
        BWL_LOG_WARN("loadBundle", QStringLiteral("Bundle not loaded: an update is running"));
        return;
    }
    QString error;
    mBundle = FirmwareBundle::read(mReader, path, error);
    mSelected.clear();
    mConfirmingModel = false;
    mTotalBytes = 0;
    mFinishedBytes = 0;
    mImageBytesDone = 0;
    if (!mBundle) {
        BWL_LOG_WARN("loadBundle",
                     QStringLiteral("Invalid firmware bundle %1: %2").arg(path, error));
        mState = FirmwareUpdateModelState::NotReady;
        reportError(tr("The selected firmware bundle is invalid."));
        return;
    }
    BWL_LOG_INFO("loadBundle", QStringLiteral("Firmware bundle %1 loaded: version %2, %3 images")
                                   .arg(path, mBundle->info().version)
                                   .arg(mBundle->images().size()));
    mErrorDescription.clear();
    mState = FirmwareUpdateModelState::NotReady;
    if (mDetailsKnown) {
        selectImages();
    } else if (mConnected) {
        requestDetails(); // selectImages() follows on the answer
    }
    publish();
}

void FirmwareUpdateModel::setPumpConnected(bool connected) {
    if (connected == mConnected) {
        return;
    }
    mConnected = connected;
    mDetailsKnown = false;
    mDetailsRequested = false;
    mConfirmingModel = false;
    mPartNumber.clear();
    if (connected) {
        requestDetails();
    } else if (mUpdating) {
        fail(FirmwareUpdateModelState::Disconnected, {}, false);
    } else if (mState == FirmwareUpdateModelState::Ready) {
        mState = FirmwareUpdateModelState::NotReady;
    }
    publish();
}

void FirmwareUpdateModel::onPumpDetails(const communication::objects::PumpDetails& details) {
    if (!mConnected) {
        return;
    }
    // Other parts of the application ask for the details too: only news changes the choice.
    const QString partNumber = details.PartNumberText().trimmed();
    const bool news = !mDetailsKnown || partNumber != mPartNumber;
    mPartNumber = partNumber;
    mDetailsKnown = true;
    if ((news || mConfirmingModel) && mBundle && !mUpdating) {
        selectImages();
    }
    publish();
}

void FirmwareUpdateModel::requestDetails() {
    if (!mDetailsRequested) {
        mDetailsRequested = true;
        mValues.get<PumpDetailsGetAll>().getAll();
    }
}

void FirmwareUpdateModel::selectImages() {
    if (mState == FirmwareUpdateModelState::Rebooting) {
        mWatchdog.stop(); // the pump is back
    }
    auto images = mBundle->imagesFor(mPartNumber);
    if (images.isEmpty() && !mConfirmingModel) {
        // Request ids are reused at once, so an answer that came twice can stand in for the
        // pump's identity. The technician is told only what a second answer confirms, and the
        // images chosen so far stand meanwhile. That question waits until the answers still on
        // their way have arrived: asked at once, it would take the id that the repeat right
        // behind this answer carries.
        BWL_LOG_INFO("selectImages", QStringLiteral("No image in the bundle for pump model "
                                                    "\"%1\"; asking the pump again to confirm")
                                         .arg(mPartNumber));
        mConfirmingModel = true;
        QTimer::singleShot(kConfirmModelDelayMs, this, [this] {
            if (mConfirmingModel && mConnected) {
                mDetailsRequested = false;
                requestDetails();
            }
        });
        return;
    }
    mConfirmingModel = false;
    mSelected = std::move(images);
    if (mSelected.isEmpty()) {
        BWL_LOG_WARN(
            "selectImages",
            QStringLiteral("No image in the bundle for pump model \"%1\"").arg(mPartNumber));
        mState = FirmwareUpdateModelState::NotReady;
        reportError(tr("The selected firmware file does not contain any firmware for this pump "
                       "model."));
        return;
    }
    switch (mState) {
    case FirmwareUpdateModelState::Rebooting:
        mState = FirmwareUpdateModelState::Succeeded; // back with its new firmware
        BWL_LOG_INFO("selectImages", QStringLiteral("Pump back after its update"));
        break;
    case FirmwareUpdateModelState::NotReady:
    case FirmwareUpdateModelState::Disconnected:
        mState = FirmwareUpdateModelState::Ready;
        break;
    default:
        break; // a failure or success stays shown until the next start
    }
}

void FirmwareUpdateModel::startUpdate() {
    if (mUpdating) {
        return;
    }
    if (!mConnected || !mDetailsKnown || mSelected.isEmpty() ||
        mState == FirmwareUpdateModelState::Rebooting) {
        reportError(StateText(FirmwareUpdateModelState::NotReady));
        return;
    }
    mUpdating = true;
    mState = FirmwareUpdateModelState::Updating;
    mErrorDescription.clear();
    mImageIndex = 0;
    mFinishedBytes = 0;
    mTotalBytes = 0;
    for (const FirmwareBundle::ImageType& image : mSelected) {
        mTotalBytes += static_cast<quint64>(image.data.size());
    }
    BWL_LOG_INFO("startUpdate", QStringLiteral("Firmware update of %1 images, %2 bytes")
                                    .arg(mSelected.size())
                                    .arg(mTotalBytes));
    beginImage();
    publish();
}

void FirmwareUpdateModel::beginImage() {
    const FirmwareBundle::ImageType& image = currentImage();
    mStartAccepted = false;
    mVerifyRequested = false;
    mStage.reset();
    mImageBytesDone = 0;
    mBacklog.clear();
    const auto size = static_cast<std::uint32_t>(image.data.size());
    const std::uint32_t crc = communication::objects::FirmwareImageCrc32(image.data);
    BWL_LOG_INFO("beginImage", QStringLiteral("Image %1: %2 bytes, CRC-32 %3")
                                   .arg(image.label())
                                   .arg(size)
                                   .arg(crc, 8, 16, QLatin1Char('0')));
    if (!mProxy.RequestStart(image.bank, size, crc)) {
        fail(FirmwareUpdateModelState::Failed, tr("Start could not be sent"), false);
        return;
    }
    mWatchdog.start(kEraseSilenceLimitMs);
}

void FirmwareUpdateModel::onRequestAccepted(std::uint8_t attribute, std::uint8_t operation) {
    if (mUpdating && attribute == FirmwareUpdateObject::ImageControl &&
        IsOperation(operation, msg::Operation::Start)) {
        mStartAccepted = true;
    }
}

void FirmwareUpdateModel::onRequestRefused(std::uint8_t attribute, std::uint8_t operation,
                                           msg::Status status) {
    const auto name =
        QString::fromLatin1(msg::OperationName(static_cast<msg::Operation>(operation)));
    BWL_LOG_WARN("onRequestRefused", QStringLiteral("Pump refused %1 of attribute %2: %3")
                                         .arg(name)
                                         .arg(attribute)
                                         .arg(QString::fromLatin1(msg::StatusName(status))));
    // A refused piece is the pump's to sort out: it asks again for what it still needs, or
    // reports the transfer failed.
    if (!mUpdating || attribute != FirmwareUpdateObject::ImageControl ||
        IsOperation(operation, msg::Operation::Stop)) {
        return;
    }
    fail(FirmwareUpdateModelState::Failed,
         QStringLiteral("%1 (%2)").arg(name, QString::fromLatin1(msg::StatusName(status))), false);
}

void FirmwareUpdateModel::onRequestFailed(std::uint8_t /*attribute*/, std::uint8_t operation) {
    if (!mUpdating || IsOperation(operation, msg::Operation::Stop)) {
        return;
    }
    fail(FirmwareUpdateModelState::TimedOut, {}, true);
}

void FirmwareUpdateModel::onDataRequest(std::uint8_t bank, std::uint32_t offset,
                                        std::uint16_t length) {
    if (!mUpdating || !mStartAccepted || bank != currentImage().bank) {
        return; // left over from an abandoned transfer: acknowledged, not answered
    }
    if (static_cast<quint64>(offset) + length > static_cast<quint64>(currentImage().data.size())) {
        fail(FirmwareUpdateModelState::Failed,
             tr("the pump asked for bytes %1 to %2 of a %3-byte image")
                 .arg(offset)
                 .arg(static_cast<quint64>(offset) + length)
                 .arg(currentImage().data.size()),
             true);
        return;
    }
    armWatchdog();
    mBacklog.append(Piece{bank, offset, length});
    sendBacklog();
}

// Two pieces requested at once may not both fit the transmit queue: what does not fit waits
// for the next transmit tick, in order.
void FirmwareUpdateModel::sendBacklog() {
    while (mUpdating && !mBacklog.isEmpty()) {
        const Piece& piece = mBacklog.front();
        const QByteArrayView data =
            QByteArrayView(currentImage().data).sliced(piece.offset, piece.length);
        if (!mProxy.SendFirmwareData(piece.bank, piece.offset, data)) {
            mBacklogTimer.start();
            return;
        }
        mBacklog.removeFirst();
    }
}

void FirmwareUpdateModel::onStatusUpdate(const FirmwareUpdateStatus& status) {
    if (!mUpdating || !mStartAccepted || status.bank != currentImage().bank) {
        return;
    }
    armWatchdog();
    const auto size = static_cast<std::uint32_t>(currentImage().data.size());
    switch (static_cast<FirmwareUpdateStage>(status.stage)) {
    case FirmwareUpdateStage::Ready:
    case FirmwareUpdateStage::Erasing:
    case FirmwareUpdateStage::Verifying:
        mStage = status.stage;
        break;
    case FirmwareUpdateStage::Programming:
        mStage = status.stage;
        mImageBytesDone = std::max(mImageBytesDone, std::min(status.bytesDone, size));
        if (status.bytesDone >= size && !mVerifyRequested) {
            mVerifyRequested = true;
            if (!mProxy.RequestVerify(currentImage().bank)) {
                fail(FirmwareUpdateModelState::Failed, tr("Verify could not be sent"), true);
                return;
            }
        }
        break;
    case FirmwareUpdateStage::Success:
        mStage = status.stage;
        onImageVerified();
        return;
    case FirmwareUpdateStage::EraseFailed:
    case FirmwareUpdateStage::ProgramFailed:
    case FirmwareUpdateStage::VerifyFailed:
    case FirmwareUpdateStage::Failed:
        mStage = status.stage;
        fail(FirmwareUpdateModelState::Failed,
             QStringLiteral("%1 (%2)").arg(StageText(status.stage), currentImage().label()), false);
        return;
    default:
        BWL_LOG_WARN("onStatusUpdate",
                     QStringLiteral("Unknown firmware update stage %1 ignored").arg(status.stage));
        return;
    }
    publish();
}

void FirmwareUpdateModel::onImageVerified() {
    BWL_LOG_INFO("onImageVerified",
                 QStringLiteral("Image %1 verified").arg(currentImage().label()));
    mFinishedBytes += static_cast<quint64>(currentImage().data.size());
    mImageBytesDone = 0;
    ++mImageIndex;
    if (mImageIndex < mSelected.size()) {
        beginImage();
        publish();
        return;
    }
    mWatchdog.stop();
    mUpdating = false;
    mState = FirmwareUpdateModelState::Succeeded;
    publish();
    // The pump starts its new firmware on a reset.
    mAwaitingReset = true;
    emit resetRequested();
}

void FirmwareUpdateModel::onResetDone() {
    if (!mAwaitingReset) {
        return;
    }
    mAwaitingReset = false;
    BWL_LOG_INFO("onResetDone", QStringLiteral("Pump restarting into its new firmware"));
    mState = FirmwareUpdateModelState::Rebooting;
    mWatchdog.start(kRebootLimitMs);
    publish();
    emit reconnectRequested();
}

void FirmwareUpdateModel::onPumpSilent() {
    if (mState == FirmwareUpdateModelState::Rebooting) {
        BWL_LOG_WARN(
            "onPumpSilent",
            QStringLiteral("Pump not back %1 ms after its reset").arg(mWatchdog.interval()));
        mState = FirmwareUpdateModelState::TimedOut;
        reportError(StateText(mState));
        return;
    }
    if (!mUpdating) {
        return;
    }
    BWL_LOG_WARN("onPumpSilent", QStringLiteral("No word from the pump's update object for %1 ms")
                                     .arg(mWatchdog.interval()));
    fail(FirmwareUpdateModelState::TimedOut, {}, true);
}

void FirmwareUpdateModel::armWatchdog() {
    mWatchdog.start(mStage == static_cast<std::uint8_t>(FirmwareUpdateStage::Erasing)
                        ? kEraseSilenceLimitMs
                        : kPumpSilenceLimitMs);
}

void FirmwareUpdateModel::fail(FirmwareUpdateModelState state, const QString& cause,
                               bool stopPump) {
    const std::uint8_t bank = currentImage().bank;
    mUpdating = false;
    mWatchdog.stop();
    mBacklogTimer.stop();
    mBacklog.clear();
    mState = state;
    if (stopPump && mConnected) {
        mProxy.RequestStop(bank);
    }
    const QString description =
        cause.isEmpty() ? StateText(state) : QStringLiteral("%1: %2").arg(StateText(state), cause);
    BWL_LOG_WARN("fail", QStringLiteral("Firmware update ended: %1").arg(description));
    reportError(description);
}

void FirmwareUpdateModel::reportError(const QString& description) {
    mErrorDescription = description;
    publish();
    emit errorOccurred(description);
}

void FirmwareUpdateModel::publish() {
    FirmwareUpdateView view;
    view.state = mState;
    view.updating = mUpdating;
    view.updateEnabled = !mUpdating && mConnected && mDetailsKnown && !mSelected.isEmpty() &&
                         mState != FirmwareUpdateModelState::Rebooting;
    view.errorDescription = mErrorDescription;
    if (mTotalBytes > 0) {
        view.progressValue =
            static_cast<int>((mFinishedBytes + mImageBytesDone) * 100 / mTotalBytes);
    }
    if (mUpdating && mStage) {
        view.statusText =
            QStringLiteral("[%1%] %2").arg(view.progressValue).arg(StageText(*mStage));
    } else {
        view.statusText = StateText(mState);
    }
    if (!mSelected.isEmpty() && mBundle) {
        view.bundleSummary =
            tr("Firmware bundle loaded\nBuild version: %1\nBuild time: %2\nModels:\n")
                .arg(mBundle->info().version, mBundle->info().time.toString(Qt::ISODate));
        for (const FirmwareBundle::ImageType& image : mSelected) {
            view.images.append(image.label());
            view.bundleSummary += tr(" * %1\n").arg(image.label());
        }
    }
    if (view != mView) {
        mView = view;
        emit viewChanged(mView);
    }
}

} // namespace firmwareUpdate
