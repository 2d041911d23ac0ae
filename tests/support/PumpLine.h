#pragma once

#include "PtyPair.h"

#include "Common/Protocol/CobsTransport.h"
#include "Common/Protocol/ProtocolMessage.h"

#include <QList>
#include <QObject>

#include <array>
#include <functional>

namespace testsupport {

/// The pump's end of a pseudo-terminal line, built straight on the protocol library: it cuts the
/// application's frames into messages and frames the test's answers. Tests decide what the pump
/// says through `setResponder`; without one the pump stays silent.
class PumpLine final : public QObject {
    Q_OBJECT

public:
    using Message = halyard::protocol::ProtocolMessage;
    using Responder = std::function<void(PumpLine& line, const Message& request)>;

    explicit PumpLine(QObject* parent = nullptr);

    PtyPair& pty() { return mPty; }
    QString portName() const { return mPty.portName(); }

    void setResponder(Responder responder) { mResponder = std::move(responder); }

    /// Every message the application sent, in order; malformed frames are counted apart.
    const QList<Message>& received() const { return mReceived; }
    int malformedFrames() const { return mMalformed; }
    void clearReceived() { mReceived.clear(); }
    /// How many received requests match (object, instance, attribute, operation).
    int countRequests(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                      halyard::protocol::message::Operation operation) const;

    /// The whole frame (COBS body, end mark, delimiter) of a message.
    static QByteArray frame(const Message& message);
    /// A response to `request` with the given type and status and optional payload bytes.
    static Message answer(const Message& request, halyard::protocol::message::Type type,
                          halyard::protocol::message::Status status,
                          const QByteArray& payload = {});
    bool send(const Message& message) { return mPty.write(frame(message)); }

signals:
    void messageReceived();

private:
    void onBytes();

    PtyPair mPty;
    std::array<std::uint8_t, 2048> mRing{};
    std::array<std::uint8_t, 2048> mScratch{};
    std::array<std::uint8_t, 2048> mFrame{};
    halyard::protocol::CobsTransport mTransport;
    QList<Message> mReceived;
    int mMalformed = 0;
    Responder mResponder;
};

} // namespace testsupport
