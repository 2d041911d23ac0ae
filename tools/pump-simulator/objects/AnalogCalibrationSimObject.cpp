#include "AnalogCalibrationSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;

AnalogCalibrationSimObject::AnalogCalibrationSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 4, 3)
    , mModel(model) {}

bool AnalogCalibrationSimObject::writeAttribute(std::uint8_t attr,
                                                halyard::protocol::PayloadWriter& writer) {
    if (attr >= mModel.settings().calibrations.size()) {
        return false;
    }
    const Calibration& calibration = mModel.settings().calibrations[attr];
    return writer.Write(calibration.slope) && writer.Write(calibration.offset);
}

void AnalogCalibrationSimObject::onRequest(const Message& request) {
    if (request.operation == msg::Operation::Get) {
        replyWithAttribute(request);
        return;
    }
    if (request.operation != msg::Operation::Set) {
        reply(request, Status::InvalidOperation);
        return;
    }
    if (request.attribute >= mModel.settings().calibrations.size()) {
        reply(request, Status::InvalidAttribute);
        return;
    }
    auto reader = request.Reader();
    Calibration calibration;
    if (!reader.Read(calibration.slope) || !reader.Read(calibration.offset)) {
        refuseData(request, "payload too short");
    } else if (!mModel.setCalibration(request.attribute, calibration)) {
        refuseData(request, "slope must be finite and non-zero, offset finite");
    } else {
        reply(request, Status::Success);
    }
}

} // namespace simulator
