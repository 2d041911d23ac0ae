#include "ProtocolObjectMetaTypes.h"

namespace communication::objects {

void registerProtocolObjectMetaTypes() {
    communication::RegisterMetaTypes();
    qRegisterMetaType<DeviceDetails>("communication::objects::DeviceDetails");
    qRegisterMetaType<PumpDetails>("communication::objects::PumpDetails");
    qRegisterMetaType<QPumpHeadParameterTypes>("communication::objects::QPumpHeadParameterTypes");
    qRegisterMetaType<QList<QPumpHeadParameterTypes>>(
        "QList<communication::objects::QPumpHeadParameterTypes>");
    qRegisterMetaType<AnalogFilterData>("communication::objects::AnalogFilterData");
    qRegisterMetaType<CelerationLimits>("communication::objects::CelerationLimits");
    qRegisterMetaType<QSpeedRangeProfile>("communication::objects::QSpeedRangeProfile");
    qRegisterMetaType<halyard::protocol::IpConfig>("halyard::protocol::IpConfig");
    qRegisterMetaType<halyard::protocol::AnybusModuleType>("halyard::protocol::AnybusModuleType");
    qRegisterMetaType<halyard::protocol::MacAddress>("halyard::protocol::MacAddress");
    qRegisterMetaType<halyard::encoder::EncoderData>("halyard::encoder::EncoderData");
    qRegisterMetaType<halyard::firmwareUpdate::FirmwareUpdateStatus>(
        "halyard::firmwareUpdate::FirmwareUpdateStatus");
    qRegisterMetaType<halyard::pump::ControlInput>("halyard::pump::ControlInput");
    qRegisterMetaType<halyard::pump::PumpHead>("halyard::pump::PumpHead");
    qRegisterMetaType<halyard::Direction>("halyard::Direction");
    qRegisterMetaType<communication::MotorFaultType>("communication::MotorFaultType");
    qRegisterMetaType<QList<float>>("QList<float>");
    qRegisterMetaType<uint8_t>("uint8_t");
    qRegisterMetaType<uint16_t>("uint16_t");
    qRegisterMetaType<uint32_t>("uint32_t");
    qRegisterMetaType<int32_t>("int32_t");
    qRegisterMetaType<size_t>("size_t");
}

} // namespace communication::objects
