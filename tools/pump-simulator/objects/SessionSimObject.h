#pragma once

#include "SimObject.h"

#include "Common/Protocol/SemanticVersion.h"

#include <functional>

namespace simulator {

/// The protocol object (object 0, instance 0): ping, protocol version, start and stop session.
class SessionSimObject final : public SimObject {
public:
    struct Callbacks {
        std::function<void(std::uint16_t value)> startSession;
        std::function<void()> stopSession;
    };

    SessionSimObject(const Context& context, halyard::SemanticVersion protocolVersion,
                     Callbacks callbacks);

protected:
    void onRequest(const Message& request) override;
    bool writeAttribute(std::uint8_t attribute, halyard::protocol::PayloadWriter& writer) override;

private:
    halyard::SemanticVersion mVersion;
    Callbacks mCallbacks;
};

} // namespace simulator
