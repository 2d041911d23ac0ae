#pragma once

#include "ProxyValue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"

#include <QList>

namespace communication {

/// The pump's faults: decodes the streamed fault word into one status per fault, acknowledges
/// the faults at the pump and raises a fault on purpose.
class PumpFaults final : public ProxyValue<objects::PumpObject> {
    Q_OBJECT

public:
    /// One fault of the fault table (index 0 to 13) and whether the pump reports it.
    struct FaultStatus {
        uint index = 0;
        bool active = false;
    };
    /// Faults in the fault word: bit i + 1 is fault index i.
    static constexpr uint kFaultCount = 14;

    explicit PumpFaults(ProtocolObjectContainer& container);

signals:
    void faultsChanged(QList<communication::PumpFaults::FaultStatus> faultList);
    void setFaultAck(communication::MotorFaultType type);

public slots:
    void ackFaults();
    void set(communication::MotorFaultType type);
    void onUpdateFaults(uint32_t faults);
    void onAckSet(communication::MotorFaultType type) { emit setFaultAck(type); }
};

} // namespace communication

Q_DECLARE_METATYPE(communication::PumpFaults::FaultStatus)
