#include "DeviceSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;

DeviceSimObject::DeviceSimObject(const Context& context, PumpModel& model,
                                 std::function<void()> restart)
    : SimObject(context, 1, 1)
    , mModel(model)
    , mRestart(std::move(restart)) {}

bool DeviceSimObject::writeAttribute(std::uint8_t attribute,
                                     halyard::protocol::PayloadWriter& writer) {
    if (attribute != 0) {
        return false;
    }
    const halyard::SemanticVersion firmware = mModel.firmwareVersion();
    return writer.Write(mModel.identity().effectiveDeviceType()) && writer.Write(firmware.major) &&
           writer.Write(firmware.minor) && writer.Write(firmware.patch);
}

void DeviceSimObject::onRequest(const Message& request) {
    if (request.attribute != 0) {
        reply(request, Status::InvalidAttribute);
        return;
    }
    switch (request.operation) {
    case msg::Operation::GetAll:
        replyWithAttribute(request);
        break;
    case msg::Operation::Reset:
        // The answer goes out before the pump goes down, as the firmware acknowledges first.
        reply(request, Status::Success);
        mRestart();
        break;
    default:
        reply(request, Status::InvalidOperation);
        break;
    }
}

} // namespace simulator
