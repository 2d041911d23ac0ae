#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"

namespace communication {

/// Which network module is fitted.
class PumpNetworkAnybusModule final : public ReadableValue<objects::NetworkObject> {
    Q_OBJECT

public:
    explicit PumpNetworkAnybusModule(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::NetworkObject::AnybusModuleType, "AnybusModule",
                        {0, false}) {
        setGetRequest("getAnybusModule, can't sent request.",
                      &objects::NetworkObject::GetAnybusModuleType);
        forwardResponse(&objects::NetworkObject::getAnybusModuleResult,
                        &PumpNetworkAnybusModule::onGetAnybusModuleResult);
    }

signals:
    void getAnybusModuleResult(halyard::protocol::AnybusModuleType anybusModuleType);

public slots:
    void getAnybusModule() { get(); }
    void onGetAnybusModuleResult(halyard::protocol::AnybusModuleType anybusModuleType) {
        BWL_LOG_INFO("onGetAnybusModuleResult", QStringLiteral("onGetAnybusModuleResult, type: %1")
                                                    .arg(static_cast<uint>(anybusModuleType)));
        emit getAnybusModuleResult(anybusModuleType);
    }
};

} // namespace communication
