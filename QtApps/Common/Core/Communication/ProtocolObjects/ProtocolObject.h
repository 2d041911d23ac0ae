#pragma once

#include "QtApps/Common/Core/Communication/MetaTypes.h"

#include "Common/Protocol/ProtocolInterface.h"
#include "Common/Protocol/ProtocolMessageHandler.h"
#include "Common/Protocol/SemanticVersion.h"

#include <QObject>

namespace communication::objects {

/// Proxy of the pump's protocol object (object 0, instance 0): the version probe, the start and
/// stop of a session, and the keep-alive ping. Requests return whether the message could be
/// queued and never wait; answers and time-outs arrive as signals. Call it on the thread that
/// runs the message layer only: every request reuses the one request message.
class ProtocolObject final : public QObject, public halyard::protocol::ProtocolMessageHandler {
    Q_OBJECT

public:
    static constexpr std::uint8_t kObjectId = 0;
    static constexpr std::uint8_t kInstance = 0;

    enum Attribute : std::uint8_t {
        KeepAlive = 0,
        Version = 1,
        StartSession = 2,
        StopSession = 3,
    };

    explicit ProtocolObject(halyard::protocol::ProtocolInterface& protocol,
                            QObject* parent = nullptr);

    bool RequestKeepAlive();
    bool RequestVersion();
    /// The session always passes 1000; it travels as two bytes, little-endian.
    bool RequestStartSession(uint16_t value);
    bool RequestStopSession();

    bool Handle(const halyard::protocol::ProtocolMessage& message) override;

    /// The last version received (0.0.0 until one arrives).
    halyard::SemanticVersion version() const { return mVersion; }

signals:
    void getVersionResponse(halyard::SemanticVersion version);
    void setStartSessionResponse();
    void setStopSessionResponse();
    void getKeepAliveResponse();
    void sessionStartTimeout();
    void sessionStopTimeout();
    void keepAliveTimeout();

private:
    bool SendWithoutPayload(Attribute attribute, halyard::protocol::message::Operation operation);
    void HandleTimeout(std::uint8_t attribute);
    bool GetVersionResponseHandler(const halyard::protocol::ProtocolMessage& message);

    halyard::protocol::ProtocolInterface& mProtocol;
    halyard::protocol::ProtocolMessage mRequest;
    halyard::SemanticVersion mVersion;
};

} // namespace communication::objects
