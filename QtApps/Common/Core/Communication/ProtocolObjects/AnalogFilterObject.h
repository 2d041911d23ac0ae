#pragma once

#include "AnalogFilterData.h"
#include "ProtocolObjectSubscribeInterface.h"
#include "ProtocolProxy.h"

#include <cstddef>

namespace communication::objects {

/// Proxy of the analog input filters (object 4, instance 4): the number of samples of the
/// current and voltage filters with their limits, and the published filter data.
///
/// Two quirks the pump relies on: subscription answers produce no signal at all, and the pump's
/// update requests are never answered, neither with success nor with an error.
class AnalogFilterObject : public ProtocolObjectSubscribeInterface, public ProtocolProxy {
    Q_OBJECT

public:
    static constexpr uint8_t kObjectId = 4;
    static constexpr uint8_t kInstance = 4;
    enum Attribute : uint8_t {
        NumSamplesCurrent = 1,
        NumSamplesCurrentLimits = 2,
        NumSamplesVoltage = 3,
        NumSamplesVoltageLimits = 4,
        FilterDataCurrent = 5,
        FilterDataVoltage = 6,
    };

    explicit AnalogFilterObject(halyard::protocol::ProtocolInterface& protocol,
                                QObject* parent = nullptr);

    bool GetNumSamplesCurrent();
    bool GetNumSamplesCurrentLimits();
    bool GetNumSamplesVoltage();
    bool GetNumSamplesVoltageLimits();
    bool SetNumSamplesCurrent(uint32_t numSamples);
    bool SetNumSamplesVoltage(uint32_t numSamples);

    /// Published attributes: 5 and 6.
    bool Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) override;
    bool Unsubscribe(uint8_t attribute) override;

signals:
    void invalidAttribute(uint8_t attribute);
    void invalidOperation();
    void invalidType();
    void invalidData(uint8_t attribute);
    void nakGet(uint8_t attribute);
    void getTimeout(uint8_t attribute);
    void setTimeout(uint8_t attribute);
    void ackGetNumSamples(uint8_t attribute, size_t numSamples);
    void ackSetNumSamples(uint8_t attribute, bool success);
    void ackGetNumSamplesLimits(uint8_t attribute, size_t minimum, size_t maximum);
    void updateFilterData(uint8_t attribute, communication::objects::AnalogFilterData data);

protected:
    bool HandleTimeout(const ProtocolMessage& message) override;
    bool HandleResponse(const ProtocolMessage& message) override;
    bool HandleRefusal(const ProtocolMessage& message) override;
    bool HandlePumpRequest(const ProtocolMessage& message) override;
    bool HandleUnknownType(const ProtocolMessage& message) override;

private:
    static bool IsPublished(uint8_t attribute) {
        return attribute == FilterDataCurrent || attribute == FilterDataVoltage;
    }
    bool HandleAnswer(const ProtocolMessage& message, bool accepted);
    void HandleGetAnswer(const ProtocolMessage& message, bool accepted);
};

} // namespace communication::objects
