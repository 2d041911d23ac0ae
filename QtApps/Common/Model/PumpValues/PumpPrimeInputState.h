#pragma once

#include "ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PrimeObject.h"

namespace communication {

/// Whether the prime input is active (the pump then runs at the prime speed).
class PumpPrimeInputState final : public ProxyValue<objects::PrimeObject> {
    Q_OBJECT

public:
    explicit PumpPrimeInputState(ProtocolObjectContainer& container)
        : ProxyValue(container, objects::PrimeObject::PrimeInputState, "PrimeInputState",
                     {100, true}) {
        forward(&objects::PrimeObject::updatePrimeInputState,
                &PumpPrimeInputState::onUpdatePrimeInputState, wire::flagFromWire);
    }

signals:
    void primeInputStateChanged(bool state);

public slots:
    void onUpdatePrimeInputState(bool state) { emit primeInputStateChanged(state); }
};

} // namespace communication
