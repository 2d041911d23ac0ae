#pragma once

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/DeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/OemDeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/LoggerObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

#include <cstddef>

namespace communication {

/// Where a proxy reports the fate of a value's requests: signals taking the attribute, or
/// nullptr where the proxy has no signal of that form (a value that needs one connects what
/// the proxy has by itself). The pump, prime, motor and stepper proxies use the names of the
/// primary template.
template <typename Proxy>
struct ProxyRequestSignals {
    static constexpr auto getTimeout = &Proxy::getTimeout;
    static constexpr auto getAck = &Proxy::ackGetResult;
    static constexpr auto setTimeout = &Proxy::setTimeout;
    static constexpr auto setAck = &Proxy::ackSetResult;
    static constexpr std::nullptr_t setDefaultTimeout = nullptr;
    static constexpr std::nullptr_t setDefaultAck = nullptr;
    /// A subscribe answer reported other than as ackSubscribeResult.
    static constexpr std::nullptr_t subscribeAck = nullptr;
};

/// No signals of these forms: the base of the other specialisations.
struct NoRequestSignals {
    static constexpr std::nullptr_t getTimeout = nullptr;
    static constexpr std::nullptr_t getAck = nullptr;
    static constexpr std::nullptr_t setTimeout = nullptr;
    static constexpr std::nullptr_t setAck = nullptr;
    static constexpr std::nullptr_t setDefaultTimeout = nullptr;
    static constexpr std::nullptr_t setDefaultAck = nullptr;
    static constexpr std::nullptr_t subscribeAck = nullptr;
};

template <>
struct ProxyRequestSignals<objects::SpeedCommanderObject> : NoRequestSignals {
    using Proxy = objects::SpeedCommanderObject;
    static constexpr auto getTimeout = &Proxy::getTimeout;
    static constexpr auto getAck = &Proxy::getAck;
    static constexpr auto setTimeout = &Proxy::setTimeout;
    static constexpr auto setAck = &Proxy::setAck;
    static constexpr auto setDefaultTimeout = &Proxy::setDefaultTimeout;
    static constexpr auto setDefaultAck = &Proxy::setDefaultAck;
};

/// The network proxy reports a refused get only together with time-outs, so the answer itself
/// is the get's acknowledgement. Its set-default is the reset, whose time-out it does not
/// report.
template <>
struct ProxyRequestSignals<objects::NetworkObject> : NoRequestSignals {
    using Proxy = objects::NetworkObject;
    static constexpr auto getTimeout = &Proxy::getTimedOut;
    static constexpr auto setTimeout = &Proxy::setTimedOut;
    static constexpr auto setAck = &Proxy::ackSet;
    static constexpr auto setDefaultAck = &Proxy::ackReset;
};

/// The filter proxy reports both outcomes of a set in one signal, which its values read.
template <>
struct ProxyRequestSignals<objects::AnalogFilterObject> : NoRequestSignals {
    using Proxy = objects::AnalogFilterObject;
    static constexpr auto getTimeout = &Proxy::getTimeout;
    static constexpr auto getAck = &Proxy::nakGet;
    static constexpr auto setTimeout = &Proxy::setTimeout;
};

/// The analog input proxy answers subscriptions through its one result signal.
template <>
struct ProxyRequestSignals<objects::AnalogInputObject> : NoRequestSignals {
    static constexpr auto subscribeAck = &objects::AnalogInputObject::ackResult;
};

/// The OEM device proxy reports a set's outcome with its status, which its values read.
template <>
struct ProxyRequestSignals<objects::OemDeviceObject> : NoRequestSignals {
    static constexpr auto getTimeout = &objects::OemDeviceObject::getTimedOut;
    static constexpr auto setTimeout = &objects::OemDeviceObject::setTimedOut;
};

template <>
struct ProxyRequestSignals<objects::DeviceObject> : NoRequestSignals {
    static constexpr auto getTimeout = &objects::DeviceObject::getTimedOut;
};

template <>
struct ProxyRequestSignals<objects::LoggerObject> : NoRequestSignals {
    static constexpr auto getTimeout = &objects::LoggerObject::getTimeout;
};

} // namespace communication
