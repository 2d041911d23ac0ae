#pragma once

#include "ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/DeviceObject.h"

namespace communication {

/// The device details (device type, application firmware version) in one request.
class DeviceDetailsGetAll final : public ReadableValue<objects::DeviceObject> {
    Q_OBJECT

public:
    explicit DeviceDetailsGetAll(ProtocolObjectContainer& container)
        : ReadableValue(container, 0, "GetAll") {
        setGetRequest("getAll, can't send request", &objects::DeviceObject::RequestGetAll);
        forwardResponse(&objects::DeviceObject::receivedDeviceDetails,
                        &DeviceDetailsGetAll::onGetAllResponse);
    }

signals:
    void getAllResponse(communication::objects::DeviceDetails details);

public slots:
    void getAll() { get(); }
    void onGetAllResponse(const communication::objects::DeviceDetails& details) {
        emit getAllResponse(details);
    }
};

} // namespace communication
