#include "OemDeviceSimObject.h"

#include "tools/pump-simulator/PumpCatalogue.h"
#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;
using halyard::protocol::PayloadWriter;

namespace attribute {
constexpr std::uint8_t kAll = 0;
constexpr std::uint8_t kPumpHead = 3;
constexpr std::uint8_t kPumpHeads = 4;
constexpr std::uint8_t kResetSettings = 8;
constexpr std::uint8_t kPortSetting = 9;
constexpr std::uint8_t kProductDescription = 10;
} // namespace attribute

namespace {
// Field sizes including the NUL.
constexpr std::size_t kSerialField = 33;
constexpr std::size_t kDescriptionField = 65;
constexpr std::size_t kHeadNameField = 12;
} // namespace

OemDeviceSimObject::OemDeviceSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 1, 2)
    , mModel(model) {}

bool OemDeviceSimObject::writeAttribute(std::uint8_t attr, PayloadWriter& writer) {
    const SimulatorOptions& identity = mModel.identity();
    switch (attr) {
    case attribute::kAll:
        return writer.Write(identity.effectiveDeviceType()) &&
               writer.Write(identity.effectiveMotorType()) &&
               writer.Write(mModel.settings().headType) &&
               writer.WriteString(identity.serialNumber.toLocal8Bit().constData(), kSerialField) &&
               writer.WriteString(identity.partNumber.toLocal8Bit().constData(), kSerialField) &&
               writer.Write(static_cast<std::uint8_t>(identity.isNetwork())) &&
               writer.Write(static_cast<std::uint8_t>(identity.isStepper()));
    case attribute::kPumpHead:
        return writer.Write(mModel.settings().headType);
    case attribute::kPumpHeads:
        for (const catalogue::PumpHead& head : catalogue::pumpHeads()) {
            if (!writer.WriteString(head.name, kHeadNameField) ||
                !writer.Write(head.maxSpeedDrpm) || !writer.Write(head.bldcCompatible) ||
                !writer.Write(head.stepperCompatible)) {
                return false;
            }
        }
        return true;
    case attribute::kPortSetting:
        return writer.Write(mModel.settings().portSetting);
    case attribute::kProductDescription:
        return writer.WriteString(identity.productDescription.toLocal8Bit().constData(),
                                  kDescriptionField);
    default:
        return false;
    }
}

void OemDeviceSimObject::onRequest(const Message& request) {
    switch (request.operation) {
    case msg::Operation::GetAll:
        if (request.attribute == attribute::kAll) {
            replyWithAttribute(request);
        } else {
            reply(request, Status::InvalidAttribute);
        }
        return;
    case msg::Operation::Get:
        if (request.attribute == attribute::kAll) {
            reply(request, Status::InvalidAttribute);
        } else {
            replyWithAttribute(request);
        }
        return;
    case msg::Operation::Set:
        if (request.attribute == attribute::kPumpHead) {
            setPumpHead(request);
        } else if (request.attribute == attribute::kPortSetting) {
            applySet<std::uint8_t>(request, [this](std::uint8_t value) {
                mModel.setPortSetting(value);
                return true;
            });
        } else {
            reply(request, Status::InvalidAttribute);
        }
        return;
    case msg::Operation::Reset:
        if (request.attribute == attribute::kResetSettings) {
            mModel.resetSettings();
            reply(request, Status::Success);
        } else {
            reply(request, Status::InvalidAttribute);
        }
        return;
    default:
        reply(request, Status::InvalidOperation);
        return;
    }
}

void OemDeviceSimObject::setPumpHead(const Message& request) {
    char name[kHeadNameField] = {};
    if (!request.Reader().ReadString(name, sizeof name)) {
        refuseData(request, "pump head name without its NUL or too long");
        return;
    }
    const int index = catalogue::pumpHeadIndex(QString::fromLocal8Bit(name));
    if (index < 0) {
        refuseData(request, "unknown pump head");
        return;
    }
    mModel.setHead(static_cast<std::uint8_t>(index));
    reply(request, Status::Success);
}

} // namespace simulator
