#pragma once

#include "ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/OemDeviceObject.h"

namespace communication {

/// The pump details: everything the OEM device object reports in one request, completed by
/// the product description, which the pump gives only on a request of its own.
class PumpDetailsGetAll final : public ReadableValue<objects::OemDeviceObject> {
    Q_OBJECT

public:
    explicit PumpDetailsGetAll(ProtocolObjectContainer& container);

signals:
    void getAllResponse(communication::objects::PumpDetails details);

public slots:
    void getAll() { get(); }
    void onGetAllResponse(const communication::objects::PumpDetails& details);
    /// Completes the details with the description when there is one, and reports them.
    void onGetProductDescriptionResponse(bool success);

private:
    objects::PumpDetails mDetails;
    objects::PumpDetails mDescription;
};

} // namespace communication
