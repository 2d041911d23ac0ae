#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkTypes.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <cstdint>

namespace communication {

class PumpValues;

/// The network module of a network pump for the screens ("cpp.PumpNetworkController"): its IP
/// configuration and MAC address, switching between DHCP and a static address, and, for the
/// pump-information overlay, the module's type, version and link state. The address properties
/// change only when the pump reports a configuration, never when one is asked for.
class PumpNetworkController final : public QObject, public QmlSingleton<PumpNetworkController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dhcpEnabled READ dhcpEnabled NOTIFY ipConfigChanged)
    /// Dotted IPv4 texts of the configuration the pump reported.
    Q_PROPERTY(QString gatewayAddress READ gatewayAddress NOTIFY ipConfigChanged)
    Q_PROPERTY(QString ipAddress READ ipAddress NOTIFY ipConfigChanged)
    Q_PROPERTY(QString subnetMask READ subnetMask NOTIFY ipConfigChanged)
    /// Six colon-separated hexadecimal bytes; empty until reported.
    Q_PROPERTY(QString macAddress READ macAddress NOTIFY macAddressChanged)
    /// The network module's type number, "0x.." ; empty until reported.
    Q_PROPERTY(QString anybusModuleType READ anybusModuleType NOTIFY moduleChanged)
    /// The network module's version, "major.minor.build"; empty until reported.
    Q_PROPERTY(QString anybusVersion READ anybusVersion NOTIFY moduleChanged)
    Q_PROPERTY(bool linkConnected READ linkConnected NOTIFY linkStatusChanged)
    Q_PROPERTY(bool port1Connected READ port1Connected NOTIFY linkStatusChanged)
    Q_PROPERTY(bool port2Connected READ port2Connected NOTIFY linkStatusChanged)
    Q_PROPERTY(bool ipEstablished READ ipEstablished NOTIFY linkStatusChanged)

public:
    explicit PumpNetworkController(PumpValues& values, QObject* parent = nullptr);

    bool dhcpEnabled() const { return mIpConfig.dhcpEnabled; }
    QString gatewayAddress() const;
    QString ipAddress() const;
    QString subnetMask() const;
    QString macAddress() const { return mMacAddress; }
    QString anybusModuleType() const { return mModuleType; }
    QString anybusVersion() const { return mModuleVersion; }
    bool linkConnected() const { return mLinkConnected; }
    bool port1Connected() const { return mPort1Connected; }
    bool port2Connected() const { return mPort2Connected; }
    bool ipEstablished() const { return mIpEstablished; }

    /// Whether `text` is a dotted IPv4 address the pump can take; the screens check each field
    /// before they offer to send.
    Q_INVOKABLE static bool isValidAddress(const QString& text);

signals:
    void ipConfigChanged();
    void macAddressChanged();
    void moduleChanged();
    void linkStatusChanged();

public slots:
    /// Streams the IP configuration and the link state.
    void subscribe();
    void getAnybusModule();
    void getAnybusVersion();
    void getMacAddress();
    /// Asks the pump to take DHCP, or the three static addresses. With DHCP the addresses are
    /// neither checked nor sent (zeros go instead). Returns false, sending nothing, when DHCP is
    /// off and an address is not a valid IPv4 text.
    bool setIpConfig(bool dhcp, const QString& ip, const QString& subnetMask,
                     const QString& gateway);

    void pumpNetworkIpConfig_ipConfigChanged(const halyard::protocol::IpConfig& ipConfig);
    void pumpNetworkMacAddress_macAddressChanged(const QString& macAddress);

private:
    PumpValues& mValues;
    halyard::protocol::IpConfig mIpConfig;
    QString mMacAddress;
    QString mModuleType;
    QString mModuleVersion;
    bool mLinkConnected = false;
    bool mPort1Connected = false;
    bool mPort2Connected = false;
    bool mIpEstablished = false;
};

} // namespace communication
