#include "ProtocolObjectContainer.h"

namespace communication {

namespace {

// Braced initialisation creates the proxies strictly in the order of the list.
template <typename... Proxy>
std::tuple<Proxy*...> CreateProxies(halyard::protocol::ProtocolInterface& protocol, QObject* parent,
                                    std::tuple<Proxy*...>* /*list*/) {
    return std::tuple<Proxy*...>{new Proxy(protocol, parent)...};
}

} // namespace

ProtocolObjectContainer::ProtocolObjectContainer(halyard::protocol::ProtocolInterface& protocol,
                                                 QObject* parent)
    : QObject(parent)
    , mProxies(CreateProxies(protocol, this, static_cast<Proxies*>(nullptr))) {
    std::apply([&protocol](auto*... proxy) { (protocol.RegisterMessageHandler(proxy), ...); },
               mProxies);
}

} // namespace communication
