#pragma once

#include "QtApps/Common/Model/PumpValues/ReadableValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"

namespace communication {

/// The motor encoder's readout, read on request.
class PumpEncoderData final : public ReadableValue<objects::MotorObject> {
    Q_OBJECT

public:
    explicit PumpEncoderData(ProtocolObjectContainer& container)
        : ReadableValue(container, objects::MotorObject::EncoderData, "EncoderData", {0, false}) {
        setGetRequest("getEncoderData, can't sent request.", &objects::MotorObject::GetEncoderData);
        forwardResponse(&objects::MotorObject::getEncoderDataResponse,
                        &PumpEncoderData::onGetEncoderDataResult);
    }

signals:
    void getEncoderDataResult(halyard::encoder::EncoderData data);

public slots:
    void getEncoderData() { get(); }
    void onGetEncoderDataResult(const halyard::encoder::EncoderData& data) {
        emit getEncoderDataResult(data);
    }
};

} // namespace communication
