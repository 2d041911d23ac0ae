#include "SpeedCommanderSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

#include <optional>

namespace simulator {

namespace msg = halyard::protocol::message;
using halyard::protocol::PayloadWriter;

namespace attribute {
constexpr std::uint8_t kCurrentTargetSpeed = 3;
constexpr std::uint8_t kVoltageTargetSpeed = 7;
constexpr std::uint8_t kEnableLineSpeed = 9;
constexpr std::uint8_t kEnableLineSpeedLimits = 10;
constexpr std::uint8_t kEnableLineAsserted = 11;
constexpr std::uint8_t kFrequencyTargetSpeed = 14;
} // namespace attribute

namespace {

/// The speed-range attributes come in groups per input: range, limits, target speed and
/// hysteresis.
struct InputAttributes {
    SpeedInput input;
    std::uint8_t range;
    std::uint8_t limits;
    std::uint8_t target;
    std::uint8_t hysteresis;
};

constexpr InputAttributes kInputs[] = {
    {SpeedInput::Current, 1, 2, 3, 4},
    {SpeedInput::Voltage, 5, 6, 7, 8},
    {SpeedInput::Frequency, 12, 13, 14, 15},
};

enum class Role { Range, Limits, Target, Hysteresis };

std::optional<std::pair<SpeedInput, Role>> lookUp(std::uint8_t attr) {
    for (const InputAttributes& entry : kInputs) {
        if (attr == entry.range) {
            return std::make_pair(entry.input, Role::Range);
        }
        if (attr == entry.limits) {
            return std::make_pair(entry.input, Role::Limits);
        }
        if (attr == entry.target) {
            return std::make_pair(entry.input, Role::Target);
        }
        if (attr == entry.hysteresis) {
            return std::make_pair(entry.input, Role::Hysteresis);
        }
    }
    return std::nullopt;
}

bool writeProfile(PayloadWriter& writer, const SpeedRangeProfile& profile) {
    return writer.Write(profile.minimumSpeedDrpm) && writer.Write(profile.maximumSpeedDrpm) &&
           writer.Write(profile.minimumInput) && writer.Write(profile.maximumInput) &&
           writer.Write(profile.hysteresis);
}

} // namespace

SpeedCommanderSimObject::SpeedCommanderSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 5, 1,
                {attribute::kCurrentTargetSpeed, attribute::kVoltageTargetSpeed,
                 attribute::kEnableLineAsserted, attribute::kFrequencyTargetSpeed})
    , mModel(model) {}

bool SpeedCommanderSimObject::writeAttribute(std::uint8_t attr, PayloadWriter& writer) {
    switch (attr) {
    case attribute::kEnableLineSpeed:
        return writer.Write(mModel.settings().enableLineSpeedDrpm);
    case attribute::kEnableLineSpeedLimits:
        return writer.Write(limits::kMinimumEnableLineSpeedDrpm) &&
               writer.Write(PumpModel::kMaxSpeedDrpm);
    case attribute::kEnableLineAsserted:
        return writer.Write(static_cast<std::uint8_t>(mModel.enableLineAsserted()));
    default:
        break;
    }
    const auto found = lookUp(attr);
    if (!found) {
        return false;
    }
    const auto index = static_cast<std::size_t>(found->first);
    switch (found->second) {
    case Role::Range:
        return writeProfile(writer, mModel.settings().speedRanges[index]);
    case Role::Limits:
        return writeProfile(writer, limits::kSpeedRangeLimits[index]);
    case Role::Target:
        return writer.Write(mModel.commandedSpeedDrpm(found->first));
    case Role::Hysteresis:
        return writer.Write(mModel.settings().speedRanges[index].hysteresis);
    }
    return false;
}

void SpeedCommanderSimObject::onRequest(const Message& request) {
    const auto found = lookUp(request.attribute);
    switch (request.operation) {
    case msg::Operation::Get:
        replyWithAttribute(request);
        return;
    case msg::Operation::SetDef:
        if (request.attribute == attribute::kEnableLineSpeed) {
            mModel.setDefaultEnableLineSpeed();
        } else if (found && found->second == Role::Range) {
            mModel.setDefaultSpeedRange(found->first);
        } else {
            reply(request, Status::InvalidAttribute);
            return;
        }
        reply(request, Status::Success);
        return;
    case msg::Operation::Set:
        break;
    default:
        reply(request, Status::InvalidOperation);
        return;
    }

    if (request.attribute == attribute::kEnableLineSpeed) {
        applySet<std::uint32_t>(request,
                                [this](std::uint32_t v) { return mModel.setEnableLineSpeed(v); });
    } else if (found && found->second == Role::Hysteresis) {
        applySet<std::uint32_t>(request, [this, input = found->first](std::uint32_t v) {
            return mModel.setHysteresis(input, v);
        });
    } else if (found && found->second == Role::Range) {
        auto reader = request.Reader();
        SpeedRangeProfile profile;
        if (!reader.Read(profile.minimumSpeedDrpm) || !reader.Read(profile.maximumSpeedDrpm) ||
            !reader.Read(profile.minimumInput) || !reader.Read(profile.maximumInput) ||
            !reader.Read(profile.hysteresis)) {
            refuseData(request, "profile payload too short");
        } else if (!mModel.setSpeedRange(found->first, profile)) {
            refuseData(request, "profile outside its limits");
        } else {
            reply(request, Status::Success);
        }
    } else {
        reply(request, Status::InvalidAttribute);
    }
}

} // namespace simulator
