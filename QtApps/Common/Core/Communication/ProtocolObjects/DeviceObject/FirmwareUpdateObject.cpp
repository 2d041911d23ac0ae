#include "FirmwareUpdateObject.h"

#include "QtApps/Common/Logger/Log.h"

#include <iterator>

namespace communication::objects {

using halyard::firmwareUpdate::FirmwareUpdateStatus;

namespace {

// The diagnostic names of the stages; the screens use their own translated texts.
const char* StageLogText(uint8_t stage) {
    static const char* const kTexts[] = {
        "Ready",     "Erasing",       "Erase failed", "Programming", "Programming failed",
        "Verifying", "Verify failed", "Failed",       "Success",
    };
    return stage < std::size(kTexts) ? kTexts[stage] : "Unknown";
}

} // namespace

FirmwareUpdateObject::FirmwareUpdateObject(halyard::protocol::ProtocolInterface& protocol,
                                           QObject* parent)
    : QObject(parent)
    , ProtocolProxy(protocol, kObjectId, kInstance) {}

bool FirmwareUpdateObject::RequestStart(uint8_t bank, uint32_t imageSize, uint32_t imageCrc32) {
    return SendControl("RequestStart", Operation::Start, bank, imageSize, imageCrc32);
}

bool FirmwareUpdateObject::RequestVerify(uint8_t bank) {
    return SendControl("RequestVerify", Operation::Verify, bank);
}

bool FirmwareUpdateObject::RequestStop(uint8_t bank) {
    return SendControl("RequestStop", Operation::Stop, bank);
}

bool FirmwareUpdateObject::SendFirmwareData(uint8_t bank, uint32_t offset, QByteArrayView data) {
    Address(ImageData, Operation::Set);
    halyard::protocol::PayloadWriter writer = Request().Writer();
    const bool complete = writer.Write(bank) && writer.Write(offset) &&
                          writer.WriteBytes(reinterpret_cast<const uint8_t*>(data.data()),
                                            static_cast<std::size_t>(data.size()));
    writer.Close();
    if (!complete) {
        LogWriteFailure("SendFirmwareData");
        return false;
    }
    return SendTracked();
}

// Sends the request message and keeps a copy for its repeats, with a retry count of 0.
bool FirmwareUpdateObject::SendTracked() {
    if (!SendRequest()) {
        return false;
    }
    PendingRequest& slot = SlotForNewRequest();
    slot.inUse = true;
    slot.retryCount = 0;
    slot.sequence = ++mSequence;
    slot.message = Request(); // with the id the request log gave it
    ForgetOthersWithId(slot);
    return true;
}

// A request whose answer never came back (the link was cleared, say) must not block the slots
// for good: when none is free the oldest is given up.
FirmwareUpdateObject::PendingRequest& FirmwareUpdateObject::SlotForNewRequest() {
    PendingRequest* oldest = &mPending.front();
    for (PendingRequest& pending : mPending) {
        if (!pending.inUse) {
            return pending;
        }
        if (pending.sequence < oldest->sequence) {
            oldest = &pending;
        }
    }
    BWL_LOG_WARN("SendTracked", QStringLiteral("More than %1 requests outstanding, the oldest is "
                                               "no longer repeated")
                                    .arg(kMaxOutstanding));
    return *oldest;
}

// The request log hands out only free ids, so an older entry with the same id is stale.
void FirmwareUpdateObject::ForgetOthersWithId(const PendingRequest& current) {
    for (PendingRequest& pending : mPending) {
        if (&pending != &current && pending.inUse && pending.message.id == current.message.id) {
            pending.inUse = false;
        }
    }
}

FirmwareUpdateObject::PendingRequest*
FirmwareUpdateObject::FindPending(const ProtocolMessage& answer) {
    for (PendingRequest& pending : mPending) {
        if (pending.inUse && pending.message.id == answer.id &&
            pending.message.attribute == answer.attribute &&
            pending.message.operationRaw == answer.operationRaw) {
            return &pending;
        }
    }
    return nullptr;
}

bool FirmwareUpdateObject::HandleTimeout(const ProtocolMessage& message) {
    PendingRequest* pending = FindPending(message);
    if (pending == nullptr) {
        return false;
    }
    if (kSendLimit.countTimeout(pending->retryCount)) {
        BWL_LOG_INFO("HandleRequestTimeout",
                     QStringLiteral("HandleRequestTimeout: Retry #%1").arg(pending->retryCount));
        // The message layer gives the repeat a fresh id, which the copy keeps for matching. It
        // logs the repeat before it queues the frame, so a repeat that finds the transmit queue
        // full (two pieces answered at once fill it) times out like a lost frame and is repeated
        // then: a full queue costs one time-out, never the update.
        if (!Messaging().Send(pending->message)) {
            BWL_LOG_INFO("HandleRequestTimeout",
                         QStringLiteral("HandleRequestTimeout: Retry #%1 not sent, repeated at "
                                        "its next time-out")
                             .arg(pending->retryCount));
        }
        ForgetOthersWithId(*pending);
        return true;
    }
    BWL_LOG_WARN("HandleRequestTimeout", QStringLiteral("HandleRequestTimeout: Failed to retry"));
    pending->inUse = false;
    emit requestFailed(message.attribute, message.operationRaw);
    return true;
}

bool FirmwareUpdateObject::HandleResponse(const ProtocolMessage& message) {
    if (PendingRequest* pending = FindPending(message)) {
        pending->inUse = false;
    }
    emit requestAccepted(message.attribute, message.operationRaw);
    return true;
}

bool FirmwareUpdateObject::HandleRefusal(const ProtocolMessage& message) {
    if (PendingRequest* pending = FindPending(message)) {
        pending->inUse = false;
    }
    emit requestRefused(message.attribute, message.operationRaw, message.status);
    return true;
}

bool FirmwareUpdateObject::HandlePumpRequest(const ProtocolMessage& message) {
    switch (message.attribute) {
    case DataRequest:
        if (message.operation != Operation::Get) {
            ReplyInvalidOperation(message);
            return true;
        }
        return HandleIncomingDataRequest(message);
    case Status:
        if (message.operation != Operation::Update) {
            ReplyInvalidOperation(message);
            return true;
        }
        return ReadAndRaiseStatusSignal(message);
    default:
        ReplyInvalidAttribute(message);
        return true;
    }
}

// The acknowledgement goes out before the signal, so that it precedes the piece on the line
// when the listener answers at once.
bool FirmwareUpdateObject::HandleIncomingDataRequest(const ProtocolMessage& message) {
    halyard::protocol::PayloadReader reader = message.Reader();
    uint8_t bank = 0;
    uint32_t offset = 0;
    uint16_t length = 0;
    if (!reader.Read(bank) || !reader.Read(offset) || !reader.Read(length) || length == 0 ||
        length > kMaxDataLength) {
        LogReadFailure("HandleIncomingDataRequest");
        ReplyInvalidMessageData(message);
        return true;
    }
    ReplySuccess(message);
    emit dataRequest(bank, offset, length);
    return true;
}

bool FirmwareUpdateObject::ReadAndRaiseStatusSignal(const ProtocolMessage& message) {
    halyard::protocol::PayloadReader reader = message.Reader();
    FirmwareUpdateStatus status;
    if (!reader.Read(status.stage) || !reader.Read(status.bank) || !reader.Read(status.bytesDone) ||
        !reader.Read(status.imageSize)) {
        LogReadFailure("ReadAndRaiseStatusSignal");
        ReplyInvalidMessageData(message);
        return true;
    }
    BWL_LOG_INFO("ReadAndRaiseStatusSignal",
                 QStringLiteral(">>> Device::FirmwareUpdate::StatusUpdate: %1 [%2]")
                     .arg(QString::fromLatin1(StageLogText(status.stage)))
                     .arg(status.stage));
    ReplySuccess(message);
    emit statusUpdate(status);
    return true;
}

} // namespace communication::objects
