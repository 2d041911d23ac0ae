#pragma once

#include "AnalogFilterData.h"
#include "CelerationLimits.h"
#include "DeviceObject/DeviceDetails.h"
#include "DeviceObject/FirmwareUpdateStatus.h"
#include "DeviceObject/PumpDetails.h"
#include "DeviceObject/QPumpHeadParameterTypes.h"
#include "EncoderData.h"
#include "NetworkTypes.h"
#include "PumpEnums.h"
#include "QtApps/Common/Core/Communication/MetaTypes.h"
#include "SpeedRangeProfile.h"

#include <QList>
#include <QMetaType>

// The types the proxies' signals carry, so that they cross to the main thread in queued
// connections. The protocol library's own types (status, semantic version) are declared in
// MetaTypes.h and registered by communication::RegisterMetaTypes, which this registration calls.
Q_DECLARE_METATYPE(communication::objects::DeviceDetails)
Q_DECLARE_METATYPE(communication::objects::PumpDetails)
Q_DECLARE_METATYPE(communication::objects::QPumpHeadParameterTypes)
Q_DECLARE_METATYPE(communication::objects::AnalogFilterData)
Q_DECLARE_METATYPE(communication::objects::CelerationLimits)
Q_DECLARE_METATYPE(communication::objects::QSpeedRangeProfile)
Q_DECLARE_METATYPE(halyard::protocol::IpConfig)
Q_DECLARE_METATYPE(halyard::protocol::AnybusModuleType)
Q_DECLARE_METATYPE(halyard::protocol::MacAddress)
Q_DECLARE_METATYPE(halyard::encoder::EncoderData)
Q_DECLARE_METATYPE(halyard::firmwareUpdate::FirmwareUpdateStatus)
Q_DECLARE_METATYPE(halyard::pump::ControlInput)
Q_DECLARE_METATYPE(halyard::pump::PumpHead)
Q_DECLARE_METATYPE(halyard::Direction)
Q_DECLARE_METATYPE(communication::MotorFaultType)

namespace communication::objects {

/// Registers the proxies' signal types with the meta-type system, under the names their signals
/// spell. Call once at start-up, before the proxies are connected across threads.
void registerProtocolObjectMetaTypes();

} // namespace communication::objects
