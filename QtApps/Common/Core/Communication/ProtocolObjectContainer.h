#pragma once

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogCalibrationObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/DeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/FirmwareUpdateObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/OemDeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/LoggerObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorStepperObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PrimeObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolBandwidthObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolTestObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

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
    // clang-format off
    using Proxies = std::tuple<objects::ProtocolObject*,
                               objects::ProtocolTestObject*,
                               objects::ProtocolBandwidthObject*,
                               objects::DeviceObject*,
                               objects::OemDeviceObject*,
                               objects::FirmwareUpdateObject*,
                               objects::PumpObject*,
                               objects::PrimeObject*,
                               objects::MotorObject*,
                               objects::MotorStepperObject*,
                               objects::AnalogInputObject*,
                               objects::AnalogCalibrationObject*,
                               objects::AnalogFilterObject*,
                               objects::SpeedCommanderObject*,
                               objects::NetworkObject*,
                               objects::LoggerObject*>;
    // clang-format on

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
