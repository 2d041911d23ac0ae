#pragma once

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"

#include "Common/Protocol/ProtocolInterface.h"

#include <QObject>

#include <tuple>

namespace communication {

/// Owns one proxy per protocol object of the pump, registers each with the message layer (in the
/// order listed) and hands them out by type: `container.get<objects::ProtocolObject>()`.
/// The proxies are QObject children of the container, so they move to the comms thread with it.
class ProtocolObjectContainer final : public QObject {
    Q_OBJECT

    // One line per proxy. Each takes (ProtocolInterface&, QObject* parent).
    using Proxies = std::tuple<objects::ProtocolObject*>;

public:
    static constexpr std::size_t kProxyCount = std::tuple_size_v<Proxies>;

    explicit ProtocolObjectContainer(halyard::protocol::ProtocolInterface& protocol,
                                     QObject* parent = nullptr);

    template <typename Proxy>
    Proxy& get() const {
        return *std::get<Proxy*>(mProxies);
    }

private:
    Proxies mProxies;
};

} // namespace communication
