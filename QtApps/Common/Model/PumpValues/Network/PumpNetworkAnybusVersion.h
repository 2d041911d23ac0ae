#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"

namespace communication {

/// Firmware version of the network module.
class PumpNetworkAnybusVersion final : public ReadableValue<objects::NetworkObject> {
    Q_OBJECT

public:
    explicit PumpNetworkAnybusVersion(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::NetworkObject::AnybusVersion, "AnybusVersion",
                        {0, false}) {
        setGetRequest("getAnybusVersion, can't sent request.",
                      &objects::NetworkObject::GetAnybusVersion);
        forwardResponse(&objects::NetworkObject::getAnybusVersionResult,
                        &PumpNetworkAnybusVersion::onGetAnybusVersionResult);
    }

signals:
    void getAnybusVersionResult(uint8_t major, uint8_t minor, uint8_t build);

public slots:
    void getAnybusVersion() { get(); }
    void onGetAnybusVersionResult(uint8_t major, uint8_t minor, uint8_t build) {
        BWL_LOG_INFO("onGetAnybusVersionResult",
                     QStringLiteral("onGetAnybusVersionResult, version: %1 .%2 .%3")
                         .arg(major)
                         .arg(minor)
                         .arg(build));
        emit getAnybusVersionResult(major, minor, build);
    }
};

} // namespace communication
