#pragma once

#include <QObject>

#include <cstdint>

namespace communication::objects {

/// A proxy whose pump object publishes attributes: the pump pushes their values as update
/// requests once subscribed. Subscribe and Unsubscribe return only whether the request went out;
/// the answer arrives as ackSubscribeResult or as one of the time-out signals.
class ProtocolObjectSubscribeInterface : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Asks the pump to send the attribute every `perdiodMs` milliseconds and, with `onChange`,
    /// also whenever it changes. False when the attribute is not published or nothing was sent.
    virtual bool Subscribe(uint8_t attribute, uint16_t perdiodMs, bool onChange) = 0;
    virtual bool Unsubscribe(uint8_t attribute) = 0;

signals:
    void subscribeTimeout(uint8_t attribute);
    void unsubscribeTimeout(uint8_t attribute);
    void ackSubscribeResult(bool success, uint8_t attribute);
};

} // namespace communication::objects
