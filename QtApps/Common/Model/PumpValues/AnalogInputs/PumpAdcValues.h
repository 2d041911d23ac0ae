#pragma once

#include "AttributeRetries.h"

#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"

#include "QtApps/Common/Logger/Log.h"

#include <QObject>

namespace communication {

/// The raw converter readings of the analog input (current, voltage and bus voltage channels,
/// millivolts at the converter), for calibration. Unlike the other values it serves several
/// attributes, so it books its subscriptions itself and reports problems as error texts.
class PumpAdcValues final : public QObject {
    Q_OBJECT

public:
    explicit PumpAdcValues(ProtocolObjectContainer& container);

signals:
    void error(QString error);
    void adcVoltageChanged(float voltageMv);
    void adcCurrentChanged(float voltageMv);
    void adcBusVoltageChanged(float voltageMv);

public slots:
    void onSubscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange);
    void onUnsubscribe(uint8_t attribute);
    void onUpdateAdcVoltage(float voltageMv) { emit adcVoltageChanged(voltageMv); }
    void onUpdateAdcCurrent(float voltageMv) { emit adcCurrentChanged(voltageMv); }
    void onUpdateAdcBusVoltage(float voltageMv) { emit adcBusVoltageChanged(voltageMv); }
    void onAckSubscribe(bool success, uint8_t attribute);
    void onSubscribeTimeout(uint8_t attribute);
    void onUnsubscribeTimeout(uint8_t attribute);

private:
    struct Subscription {
        uint16_t periodMs = 0;
        bool onChange = false;
    };
    static bool isAdcAttribute(uint8_t attribute);
    void reportError(const logger::Site& site, const QString& text);

    objects::AnalogInputObject& mProxy;
    std::array<Subscription, 8> mSubscriptions{};
    AttributeRetries<8> mSubscribeRetries;
    AttributeRetries<8> mUnsubscribeRetries;
};

} // namespace communication
