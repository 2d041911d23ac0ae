#include "PumpDetailsGetAll.h"

namespace communication {

using objects::OemDeviceObject;
using objects::PumpDetails;

PumpDetailsGetAll::PumpDetailsGetAll(ProtocolObjectContainer& container)
    : ReadableValue(container, OemDeviceObject::Details, "PumpDetails: GetAll") {
    setGetRequest("RequestAll, can't send request", &OemDeviceObject::RequestGetAll);
    forwardResponse(&OemDeviceObject::receivedPumpDetails, &PumpDetailsGetAll::onGetAllResponse);
    connect(&proxy(), &OemDeviceObject::receivedProductDescription, this,
            [this](bool success, const PumpDetails& description) {
                mDescription = description;
                onGetProductDescriptionResponse(success);
            });
    // A description that never comes still leaves the details worth reporting.
    connect(&proxy(), &OemDeviceObject::getTimedOut, this, [this](uint8_t attribute) {
        if (attribute == OemDeviceObject::ProductDescription) {
            onGetProductDescriptionResponse(false);
        }
    });
}

void PumpDetailsGetAll::onGetAllResponse(const PumpDetails& details) {
    mDetails = details;
    if (!send("RequestGetProductDescription, can't send request",
              &OemDeviceObject::RequestGetProductDescription)) {
        emit getAllResponse(mDetails);
    }
}

void PumpDetailsGetAll::onGetProductDescriptionResponse(bool success) {
    if (success) {
        mDetails.productDescription = mDescription.productDescription;
        mDetails.productDescriptionLength = mDescription.productDescriptionLength;
    }
    emit getAllResponse(mDetails);
}

} // namespace communication
