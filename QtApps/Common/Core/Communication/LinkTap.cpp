#include "LinkTap.h"

namespace communication {

using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;

bool LinkTap::PayloadOut(const std::uint8_t* data, std::size_t length) {
    if (!mTransmit.PayloadOut(data, length)) {
        return false;
    }
    mCounters.FrameOut(data, length);
    if (mObserver != nullptr) {
        mObserver->FrameSent(data, length);
    }
    return true;
}

bool LinkTap::Send(ProtocolMessage& message) {
    return mProtocol.Send(message);
}

// Told before the message layer hands the time-out to its object, which may send the retry
// from inside that call.
Status LinkTap::Receive(ProtocolMessage& message) {
    if (message.type == Type::NakStatus && message.status == Status::RequestAckTimeout) {
        mCounters.RequestTimedOut(message.id);
        if (mObserver != nullptr) {
            mObserver->RequestTimedOut(message.id);
        }
    }
    return mProtocol.Receive(message);
}

} // namespace communication
