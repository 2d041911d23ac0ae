#pragma once

#include "Common/Protocol/ProtocolInterface.h"
#include "Common/Protocol/ProtocolMessageHandler.h"

#include <QObject>

namespace communication::objects {

/// The protocol bandwidth object (object 0, instance 2), kept registered so that the pump's
/// throughput measurement finds a partner: it acknowledges every request of the pump at once,
/// whatever its size, and counts the messages and payload bytes received.
class ProtocolBandwidthObject : public QObject, public halyard::protocol::ProtocolMessageHandler {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 0;
    static constexpr uint8_t kInstance = 2;

    explicit ProtocolBandwidthObject(halyard::protocol::ProtocolInterface& protocol,
                                     QObject* parent = nullptr);

    bool Handle(const halyard::protocol::ProtocolMessage& message) override;

    quint64 ReceivedMessages() const { return mReceivedMessages; }
    quint64 ReceivedPayloadBytes() const { return mReceivedPayloadBytes; }

private:
    halyard::protocol::ProtocolInterface& mProtocol;
    quint64 mReceivedMessages = 0;
    quint64 mReceivedPayloadBytes = 0;
};

} // namespace communication::objects
