#pragma once

#include "NetworkTypes.h"
#include "ProtocolObjectSubscribeInterface.h"
#include "ProtocolProxy.h"

namespace communication::objects {

/// Proxy of the pump's fieldbus module (object 6, instance 1): module type and version, MAC
/// address, IP configuration (get, set, reset, published) and link status (published), and the
/// reset of the module's file system.
///
/// A time-out is reported by its time-out signal and then also as a refusal (ackUnhandledType,
/// or ackSubscribeResult(false) for a subscription). Subscriptions are not checked against the
/// published attributes: the pump judges them.
class NetworkObject : public ProtocolObjectSubscribeInterface, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 6;
    static constexpr uint8_t kInstance = 1;
    enum Attribute : uint8_t {
        AnybusModuleType = 1,
        AnybusVersion = 2,
        MacAddress = 3,
        IpConfig = 4,
        LinkStatus = 5,
        FileSystem = 6,
    };

    explicit NetworkObject(halyard::protocol::ProtocolInterface& protocol,
                           QObject* parent = nullptr);

    bool GetAnybusModuleType();
    bool GetAnybusVersion();
    bool GetMacAddress();
    bool GetIpConfig();
    /// The configuration, then `extra`, whose meaning is the pump's.
    bool SetIpSettings(const halyard::protocol::IpConfig& ipConfig, uint8_t extra);
    bool ResetIpConfig();
    bool ResetFileSystem();

    bool Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) override;
    bool Unsubscribe(uint8_t attribute) override;

signals:
    void getTimedOut(uint8_t attribute);
    void setTimedOut(uint8_t attribute);
    void ackUnhandledType(uint8_t attribute);
    /// Declared for the network controller's connections; subscriptions are acknowledged through
    /// ackSubscribeResult.
    void ackSubscribe(bool success);
    void ackSet(uint8_t attribute);
    void ackReset(uint8_t attribute);
    void getAnybusModuleResult(halyard::protocol::AnybusModuleType anybusModuleType);
    void getAnybusVersionResult(uint8_t major, uint8_t minor, uint8_t build);
    void getMacAddressResult(halyard::protocol::MacAddress macAddress);
    void getIpConfigResult(halyard::protocol::IpConfig ipConfig);
    void updateIpConfig(halyard::protocol::IpConfig ipConfig);
    void updateLinkStatus(bool linkConnected, bool port1Connected, bool port2Connected,
                          bool ipEstablished);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandleUpdate(const ProtocolMessage& message) override;
    bool HandleUnknownType(const ProtocolMessage& message) override;

private:
    bool HandleGetResponse(const ProtocolMessage& message);
};

} // namespace communication::objects
