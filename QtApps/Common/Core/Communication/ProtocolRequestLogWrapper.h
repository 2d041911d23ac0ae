#pragma once

#include "SystemWrapper.h"

#include "Common/Protocol/ProtocolRequestLog.h"

namespace communication {

/// The link's request log with the clock it runs on. The application core derives from it, so the
/// log exists before anything that sends.
class ProtocolRequestLogWrapper : public halyard::protocol::ProtocolRequestLogInterface,
                                  public halyard::protocol::ProtocolRequestTimeoutInterface {
public:
    static constexpr std::uint32_t kTimeoutMs = 100;

    ProtocolRequestLogWrapper();

    void ClearAll() override;
    std::uint8_t AddRequestHeader(halyard::protocol::ProtocolMessage& message) override;
    bool MatchResponse(halyard::protocol::ProtocolMessage& message) override;
    void Release(std::uint8_t id) override;
    void CheckTimeouts(halyard::protocol::ProtocolMessagingInterface& handler) override;
    std::uint32_t TimeoutInterval() const override;

    std::size_t OutstandingCount() const { return mLog.OutstandingCount(); }

private:
    // Declared first: the log keeps a reference to it.
    wrappers::SystemWrapper mSystem;
    halyard::protocol::ProtocolRequestLog mLog;
};

} // namespace communication
