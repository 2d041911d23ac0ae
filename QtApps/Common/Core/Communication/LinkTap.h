#pragma once

#include "FrameObserver.h"
#include "LinkCounters.h"

#include "Common/Protocol/PayloadOutHandler.h"
#include "Common/Protocol/ProtocolMessagingInterface.h"

namespace communication {

/// Where the link's frames pass the counters and, while one is set, an observer (the session
/// recorder). It stands between the message layer and the transmit queue as the payload-out
/// handler, and between the request log and the message layer for the time-out scan; the
/// receive loop tells it of each frame. Comms thread only; without an observer a frame costs
/// the counting and one pointer test.
class LinkTap final : public halyard::protocol::PayloadOutHandler,
                      public halyard::protocol::ProtocolMessagingInterface {
public:
    /// `transmit` and `protocol` (not owned) are what the tap hands on to; `clock` times pings.
    LinkTap(halyard::protocol::PayloadOutHandler& transmit,
            halyard::protocol::ProtocolMessagingInterface& protocol,
            const halyard::device::SystemInterface& clock)
        : mTransmit(transmit)
        , mProtocol(protocol)
        , mCounters(clock) {}

    LinkCounters& counters() { return mCounters; }
    /// Null for none; the observer must outlive its setting.
    void SetObserver(FrameObserver* observer) { mObserver = observer; }

    /// Received bytes, before they are cut into frames.
    void BytesReceived(std::size_t count) { mCounters.BytesIn(count); }
    /// A frame cut out of the received bytes (negative length: malformed), before the message
    /// layer handles it.
    void FrameReceived(const std::uint8_t* message, std::int32_t length) {
        mCounters.FrameIn(message, length);
        if (mObserver != nullptr) {
            mObserver->FrameReceived(message, length);
        }
    }
    /// What the message layer made of that frame.
    void FrameHandled(std::int32_t length, halyard::protocol::message::Status status) {
        if (length >= 0 && status != halyard::protocol::message::Status::Success) {
            mCounters.MessageRejected(status);
        }
    }

    /// Queues the message and counts (and shows the observer) what was queued.
    bool PayloadOut(const std::uint8_t* data, std::size_t length) override;
    /// Sends through the message layer.
    bool Send(halyard::protocol::ProtocolMessage& message) override;
    /// The request log's time-outs on their way to the message layer.
    halyard::protocol::message::Status
    Receive(halyard::protocol::ProtocolMessage& message) override;

private:
    halyard::protocol::PayloadOutHandler& mTransmit;
    halyard::protocol::ProtocolMessagingInterface& mProtocol;
    LinkCounters mCounters;
    FrameObserver* mObserver = nullptr;
};

} // namespace communication
