#pragma once

#include "ProtocolProxy.h"

#include <QObject>

namespace communication::objects {

/// The protocol test object (object 0, instance 1), kept registered so that the pump's test
/// requests, used to measure the link's error handling, are answered rather than refused as an
/// unknown instance. Every test request is acknowledged with success and counted; the
/// application sends no test requests of its own.
class ProtocolTestObject : public QObject, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 0;
    static constexpr uint8_t kInstance = 1;

    explicit ProtocolTestObject(halyard::protocol::ProtocolInterface& protocol,
                                QObject* parent = nullptr);

    quint64 TestRequestCount() const { return mTestRequests; }

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandlePumpRequest(const ProtocolMessage& message) override;

private:
    quint64 mTestRequests = 0;
};

} // namespace communication::objects
