#pragma once

#include "FirmwareUpdateStatus.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolProxy.h"
#include "QtApps/Common/Core/Communication/SendLimit.h"

#include <QByteArrayView>
#include <QObject>

#include <array>

namespace communication::objects {

/// Proxy of the pump's firmware-update object (object 1, instance 3). The pump drives an image
/// transfer: after Start it asks for the image piece by piece (dataRequest) and reports its
/// stage and progress (statusUpdate); the caller answers each data request with
/// SendFirmwareData. The wire form is written down in docs/firmware-update-object.md.
///
/// Unlike the other proxies this one retries: each of its requests is sent at most four times
/// before requestFailed is raised.
class FirmwareUpdateObject : public QObject, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 1;
    static constexpr uint8_t kInstance = 3;
    enum Attribute : uint8_t { ImageControl = 0, DataRequest = 1, ImageData = 2, Status = 3 };
    /// Largest piece of an image in one request: the payload less bank and offset.
    static constexpr std::size_t kMaxDataLength = halyard::protocol::kMaxPayloadLength - 5;
    /// A piece or control request is sent up to four times: an update that gives up leaves the
    /// pump half-programmed, so it is worth one more try than other requests.
    static constexpr SendLimit kSendLimit{4};
    /// Requests kept for repeating. A pump that follows the transfer rules has at most three
    /// outstanding (two pieces and a control request); a further one replaces the oldest.
    static constexpr std::size_t kMaxOutstanding = 4;

    explicit FirmwareUpdateObject(halyard::protocol::ProtocolInterface& protocol,
                                  QObject* parent = nullptr);

    bool RequestStart(uint8_t bank, uint32_t imageSize, uint32_t imageCrc32);
    bool RequestVerify(uint8_t bank);
    bool RequestStop(uint8_t bank);
    /// Answers a data request with the image bytes at `offset`.
    bool SendFirmwareData(uint8_t bank, uint32_t offset, QByteArrayView data);

signals:
    void dataRequest(uint8_t bank, uint32_t offset, uint16_t length);
    void statusUpdate(halyard::firmwareUpdate::FirmwareUpdateStatus status);
    void requestAccepted(uint8_t attribute, uint8_t operation);
    void requestRefused(uint8_t attribute, uint8_t operation,
                        halyard::protocol::message::Status status);
    /// The request went unanswered four times, or a repeat could not be sent.
    void requestFailed(uint8_t attribute, uint8_t operation);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandlePumpRequest(const ProtocolMessage& message) override;

private:
    struct PendingRequest {
        bool inUse = false;
        uint8_t retryCount = 0;
        uint32_t sequence = 0; ///< order of sending, to find the oldest
        ProtocolMessage message;
    };

    /// An image-control request, sent only when complete, and tracked for its repeats.
    template <typename... Fields>
    bool SendControl(LogSite site, Operation operation, Fields... fields) {
        if (!WriteFields(ImageControl, operation, fields...)) {
            LogWriteFailure(site);
            return false;
        }
        return SendTracked();
    }
    bool SendTracked();
    PendingRequest* FindPending(const ProtocolMessage& answer);
    PendingRequest& SlotForNewRequest();
    void ForgetOthersWithId(const PendingRequest& current);
    bool HandleIncomingDataRequest(const ProtocolMessage& message);
    bool ReadAndRaiseStatusSignal(const ProtocolMessage& message);

    std::array<PendingRequest, kMaxOutstanding> mPending{};
    uint32_t mSequence = 0;
};

} // namespace communication::objects
