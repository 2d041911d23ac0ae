#include "PumpSettingsNetworkObject.h"

#include "DottedAddress.h"

#include "QtApps/Common/Model/PumpValues/PumpValues.h"

namespace pumpSettings::network {

using halyard::protocol::IpConfig;

namespace {

constexpr QLatin1String kAddress("ipAddress");
constexpr QLatin1String kSubnetMask("subnetMask");
constexpr QLatin1String kGateway("gatewayAddress");
constexpr QLatin1String kDhcp("dhcp");

std::uint32_t addressOf(const FieldValues& file, const QString& key) {
    // The layout let only addresses through.
    return parseDottedAddress(file.value(key).toString()).value_or(0);
}

} // namespace

const SectionLayout& PumpSettingsNetworkObject::layout() {
    static const SectionLayout layout({
        FieldSpec::flag(kDhcp, QT_TRANSLATE_NOOP("SectionLayout", "DHCP")),
        FieldSpec::address(kAddress, QT_TRANSLATE_NOOP("SectionLayout", "IP address")),
        FieldSpec::address(kSubnetMask, QT_TRANSLATE_NOOP("SectionLayout", "Subnet mask")),
        FieldSpec::address(kGateway, QT_TRANSLATE_NOOP("SectionLayout", "Gateway address")),
    });
    return layout;
}

PumpSettingsNetworkObject::PumpSettingsNetworkObject(communication::PumpValues& values,
                                                     QObject* parent)
    : PumpSettingsSection(QStringLiteral("network"), layout(), parent) {
    using communication::PumpNetworkIpConfig;
    addBinding(new ValueBinding<PumpNetworkIpConfig, IpConfig>(
        values.get<PumpNetworkIpConfig>(), &PumpNetworkIpConfig::get,
        &PumpNetworkIpConfig::getIpConfigResult,
        qOverload<const IpConfig&>(&PumpNetworkIpConfig::set),
        [](const IpConfig& config) {
            return FieldValues{{kDhcp, config.dhcpEnabled},
                               {kAddress, dottedAddress(config.ipAddress)},
                               {kSubnetMask, dottedAddress(config.subnetMask)},
                               {kGateway, dottedAddress(config.gateway)}};
        },
        [](const FieldValues& file, const IpConfig& /*present*/) {
            IpConfig config;
            config.dhcpEnabled = file.value(kDhcp).toBool();
            config.ipAddress = addressOf(file, kAddress);
            config.subnetMask = addressOf(file, kSubnetMask);
            config.gateway = addressOf(file, kGateway);
            return config;
        },
        this));
}

} // namespace pumpSettings::network
