#include "NetworkSimObject.h"

#include "tools/pump-simulator/PumpModel.h"

namespace simulator {

namespace msg = halyard::protocol::message;
using halyard::protocol::ByteOrder;
using halyard::protocol::PayloadWriter;

namespace attribute {
constexpr std::uint8_t kModuleType = 1;
constexpr std::uint8_t kModuleVersion = 2;
constexpr std::uint8_t kMacAddress = 3;
constexpr std::uint8_t kIpConfig = 4;
constexpr std::uint8_t kLinkStatus = 5;
constexpr std::uint8_t kFileSystem = 6;
} // namespace attribute

namespace {
constexpr std::uint8_t kModuleTypeValue = 0x01;
constexpr std::uint8_t kModuleVersionValue[3] = {2, 1, 7}; // major, minor, build
// A locally administered address, so it can never clash with real hardware.
constexpr std::uint8_t kMac[6] = {0x02, 0x42, 0x57, 0x4C, 0x00, 0x01};
// Link up, port 1 connected, IP established.
constexpr std::uint8_t kLinkStatusFlags = 0x0B;
} // namespace

NetworkSimObject::NetworkSimObject(const Context& context, PumpModel& model)
    : SimObject(context, 6, 1, {attribute::kIpConfig, attribute::kLinkStatus})
    , mModel(model) {}

bool NetworkSimObject::writeAttribute(std::uint8_t attr, PayloadWriter& writer) {
    switch (attr) {
    case attribute::kModuleType:
        return writer.Write(kModuleTypeValue);
    case attribute::kModuleVersion:
        return writer.WriteBytes(kModuleVersionValue, sizeof kModuleVersionValue);
    case attribute::kMacAddress:
        return writer.WriteBytes(kMac, sizeof kMac);
    case attribute::kIpConfig: {
        // The only big-endian fields of the protocol: the three addresses.
        const IpConfig& config = mModel.settings().ipConfig;
        return writer.Write(static_cast<std::uint8_t>(config.dhcpEnabled)) &&
               writer.Write(config.address, ByteOrder::BigEndian) &&
               writer.Write(config.subnetMask, ByteOrder::BigEndian) &&
               writer.Write(config.gateway, ByteOrder::BigEndian);
    }
    case attribute::kLinkStatus:
        return writer.Write(kLinkStatusFlags);
    default:
        return false;
    }
}

void NetworkSimObject::onRequest(const Message& request) {
    switch (request.operation) {
    case msg::Operation::Get:
        replyWithAttribute(request);
        return;
    case msg::Operation::Set: {
        if (request.attribute != attribute::kIpConfig) {
            reply(request, Status::InvalidAttribute);
            return;
        }
        auto reader = request.Reader();
        std::uint8_t dhcp = 0;
        IpConfig config;
        if (!reader.Read(dhcp) || !reader.Read(config.address, ByteOrder::BigEndian) ||
            !reader.Read(config.subnetMask, ByteOrder::BigEndian) ||
            !reader.Read(config.gateway, ByteOrder::BigEndian)) {
            refuseData(request, "IP configuration too short");
            return;
        }
        // The byte after the configuration is the application's; the pump applies the new
        // configuration either way.
        config.dhcpEnabled = dhcp != 0;
        mModel.setIpConfig(config);
        reply(request, Status::Success);
        return;
    }
    case msg::Operation::Reset:
    case msg::Operation::SetDef: // a reset of the IP configuration is its set-default
        if (request.attribute == attribute::kIpConfig) {
            mModel.resetIpConfig();
        } else if (request.attribute == attribute::kFileSystem) {
            mModel.logEvent(QStringLiteral("Network file system reset"));
        } else {
            reply(request, Status::InvalidAttribute);
            return;
        }
        reply(request, Status::Success);
        return;
    default:
        reply(request, Status::InvalidOperation);
        return;
    }
}

} // namespace simulator
