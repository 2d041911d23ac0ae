#pragma once

#include "ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/DeviceObject.h"

namespace communication {

/// Reboots the pump. The reset is booked like a Set of attribute 0: an acknowledged reset
/// emits setSuccess, and time-outs are retried and aborted as a Set's are.
class PumpReset final : public ProxyValue<objects::DeviceObject> {
    Q_OBJECT

public:
    explicit PumpReset(ProtocolObjectContainer& container)
        : ProxyValue(container, kAttribute, "Reset") {
        connect(&proxy(), &objects::DeviceObject::receivedResetAck, this, &PumpReset::onResetAck);
        connect(&proxy(), &objects::DeviceObject::resetTimedOut, this, &PumpReset::onResetTimeout);
        connect(this, &PumpValueBase::retrySetValue, this, &PumpReset::reset);
    }

public slots:
    void reset() { send("reset, can't send request", &objects::DeviceObject::RequestReset); }
    void onResetAck() { onAckSetValue(kAttribute); }
    void onResetTimeout() { onSetValueTimeout(kAttribute); }

private:
    static constexpr uint8_t kAttribute = 0;
};

} // namespace communication
