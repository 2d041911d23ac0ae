#pragma once

#include "PumpSettingsSection.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/PumpDetails.h"

namespace communication {
class PumpValues;
}

namespace pumpSettings::oemPump {

/// The "oemPump" section: what kind of pump the file is for (device type, motor type, fitted
/// head, as texts, from the pump's details) and its acceleration, deceleration and prime speed.
/// A file fits a pump only when all three texts are the pump's own; the fitted head is
/// hardware, so a load checks it and never sets it.
class PumpSettingsOemPumpObject final : public PumpSettingsSection {
    Q_OBJECT

public:
    PumpSettingsOemPumpObject(communication::PumpValues& values,
                              const communication::objects::PumpDetails& details,
                              QObject* parent = nullptr);

    static const SectionLayout& layout();
    /// IncompatiblePumpSettings when the file's "type", "motor" or "head" differs from the
    /// pump's (exactly, case included), else Success. `file` holds a read section.
    static PumpSettingsResultType
    checkCompatible(const FieldValues& file, const communication::objects::PumpDetails& details);

protected:
    PumpSettingsResultType checkFile(const FieldValues& file) const override;

private:
    communication::objects::PumpDetails mDetails;
};

} // namespace pumpSettings::oemPump
