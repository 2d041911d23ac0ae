#pragma once

#include "ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/OemDeviceObject.h"

namespace communication {

/// The pump heads the drive supports.
class PumpHeads final : public ReadableValue<objects::OemDeviceObject> {
    Q_OBJECT

public:
    explicit PumpHeads(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::OemDeviceObject::PumpHeads, "PumpHeads") {
        setGetRequest("getPumpHeads, can't send request",
                      &objects::OemDeviceObject::RequestGetPumpHeads);
        forwardResponse(&objects::OemDeviceObject::receivedPumpHeads,
                        &PumpHeads::onGetPumpHeadsResponse);
    }

signals:
    void getPumpHeadsResponse(QList<communication::objects::QPumpHeadParameterTypes> heads);

public slots:
    void getPumpHeads() { get(); }
    void
    onGetPumpHeadsResponse(const QList<communication::objects::QPumpHeadParameterTypes>& heads) {
        emit getPumpHeadsResponse(heads);
    }
};

} // namespace communication
