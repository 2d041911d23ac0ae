#include "PumpNetworkController.h"

#include "QueuedCall.h"

#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Model/PumpValues/WireConversions.h"

#include <QHostAddress>
#include <QRegularExpression>

#include <optional>

namespace communication {

using halyard::protocol::IpConfig;

namespace {

QString dotted(uint32_t address) {
    return QHostAddress(address).toString();
}

// Four decimal parts only: the short and IPv6-mapped forms QHostAddress also takes
// ("192.168.1", "::ffff:10.0.0.1") are not what a technician means to send a pump.
std::optional<uint32_t> parsedAddress(const QString& text) {
    static const QRegularExpression dottedQuad(
        QStringLiteral("^\\d{1,3}\\.\\d{1,3}\\.\\d{1,3}\\.\\d{1,3}$"));
    const QString trimmed = text.trimmed();
    if (!dottedQuad.match(trimmed).hasMatch()) {
        return std::nullopt;
    }
    bool ok = false;
    const uint32_t address = QHostAddress(trimmed).toIPv4Address(&ok);
    return ok ? std::optional<uint32_t>(address) : std::nullopt;
}

} // namespace

PumpNetworkController::PumpNetworkController(PumpValues& values, QObject* parent)
    : QObject(parent)
    , mValues(values) {
    auto& ipConfig = values.get<PumpNetworkIpConfig>();
    connect(&ipConfig, &PumpNetworkIpConfig::ipConfigUpdate, this,
            &PumpNetworkController::pumpNetworkIpConfig_ipConfigChanged, Qt::QueuedConnection);
    connect(&ipConfig, &PumpNetworkIpConfig::getIpConfigResult, this,
            &PumpNetworkController::pumpNetworkIpConfig_ipConfigChanged, Qt::QueuedConnection);
    connect(&values.get<PumpNetworkMacAddress>(), &PumpNetworkMacAddress::getMacAddressStringResult,
            this, &PumpNetworkController::pumpNetworkMacAddress_macAddressChanged,
            Qt::QueuedConnection);
    connect(
        &values.get<PumpNetworkAnybusModule>(), &PumpNetworkAnybusModule::getAnybusModuleResult,
        this,
        [this](halyard::protocol::AnybusModuleType type) {
            mModuleType = QStringLiteral("0x%1").arg(wire::codeOf(type), 2, 16, QLatin1Char('0'));
            emit moduleChanged();
        },
        Qt::QueuedConnection);
    connect(
        &values.get<PumpNetworkAnybusVersion>(), &PumpNetworkAnybusVersion::getAnybusVersionResult,
        this,
        [this](uint8_t major, uint8_t minor, uint8_t build) {
            mModuleVersion = QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(build);
            emit moduleChanged();
        },
        Qt::QueuedConnection);
    auto& link = values.get<PumpNetworkLinkStatus>();
    const auto followLink = [this, &link](auto signal, bool PumpNetworkController::*flag) {
        connect(
            &link, signal, this,
            [this, flag](bool state) {
                this->*flag = state;
                emit linkStatusChanged();
            },
            Qt::QueuedConnection);
    };
    followLink(&PumpNetworkLinkStatus::linkConnectedUpdate, &PumpNetworkController::mLinkConnected);
    followLink(&PumpNetworkLinkStatus::port1ConnectedUpdate,
               &PumpNetworkController::mPort1Connected);
    followLink(&PumpNetworkLinkStatus::port2ConnectedUpdate,
               &PumpNetworkController::mPort2Connected);
    followLink(&PumpNetworkLinkStatus::ipEstablishedUpdate, &PumpNetworkController::mIpEstablished);
}

QString PumpNetworkController::gatewayAddress() const {
    return dotted(mIpConfig.gateway);
}

QString PumpNetworkController::ipAddress() const {
    return dotted(mIpConfig.ipAddress);
}

QString PumpNetworkController::subnetMask() const {
    return dotted(mIpConfig.subnetMask);
}

bool PumpNetworkController::isValidAddress(const QString& text) {
    return parsedAddress(text).has_value();
}

void PumpNetworkController::subscribe() {
    callQueued(mValues.get<PumpNetworkIpConfig>(), &PumpValueBase::subscribe);
    callQueued(mValues.get<PumpNetworkLinkStatus>(), &PumpValueBase::subscribe);
}

void PumpNetworkController::getAnybusModule() {
    callQueued(mValues.get<PumpNetworkAnybusModule>(), &PumpNetworkAnybusModule::getAnybusModule);
}

void PumpNetworkController::getAnybusVersion() {
    callQueued(mValues.get<PumpNetworkAnybusVersion>(),
               &PumpNetworkAnybusVersion::getAnybusVersion);
}

void PumpNetworkController::getMacAddress() {
    callQueued(mValues.get<PumpNetworkMacAddress>(), &PumpNetworkMacAddress::getMacAddress);
}

bool PumpNetworkController::setIpConfig(bool dhcp, const QString& ip, const QString& subnetMask,
                                        const QString& gateway) {
    IpConfig config;
    config.dhcpEnabled = dhcp;
    if (!dhcp) {
        const auto address = parsedAddress(ip);
        const auto gatewayAddress = parsedAddress(gateway);
        const auto mask = parsedAddress(subnetMask);
        if (!address || !gatewayAddress || !mask) {
            return false;
        }
        config.ipAddress = *address;
        config.gateway = *gatewayAddress;
        config.subnetMask = *mask;
    }
    // The module resets itself to take a new configuration; the screens never suppress it.
    callQueued(mValues.get<PumpNetworkIpConfig>(),
               QOverload<const IpConfig&, bool>::of(&PumpNetworkIpConfig::set), config, false);
    return true;
}

void PumpNetworkController::pumpNetworkIpConfig_ipConfigChanged(const IpConfig& ipConfig) {
    mIpConfig = ipConfig;
    emit ipConfigChanged();
}

void PumpNetworkController::pumpNetworkMacAddress_macAddressChanged(const QString& macAddress) {
    mMacAddress = macAddress;
    emit macAddressChanged();
}

} // namespace communication
