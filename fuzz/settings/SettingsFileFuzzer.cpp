// The settings file parser as a load runs it, without a pump: the bytes become a JSON document,
// and each section a pump of either kind needs is checked against its layout, "oemPump" also
// against the pump. Invariants: a section that is accepted holds exactly its layout's fields,
// each within its field's range; written back and read again it gives the same values (and an
// accepted address is in the one dotted form); the pump check gives only its two answers.

#include "../FuzzCheck.h"

#include "QtApps/Common/Model/PumpSettings/DottedAddress.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettingsAnalogObject.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettingsNetworkObject.h"
#include "QtApps/Common/Model/PumpSettings/PumpSettingsOemPumpObject.h"
#include "QtApps/Common/Model/PumpSettings/SettingsDocument.h"

#include <QByteArray>

#include <cstdint>

using namespace pumpSettings;
using communication::objects::PumpDetails;

namespace {

void checkSection(const SectionLayout& layout, const QJsonValue& section) {
    if (!section.isObject()) {
        return;
    }
    FieldValues values;
    QString error;
    if (!layout.read(section.toObject(), values, error)) {
        FUZZ_CHECK(!error.isEmpty());
        return;
    }
    FUZZ_CHECK(values.keys().size() == layout.paths().size());
    for (const QString& path : layout.paths()) {
        const QJsonValue value = values.value(path);
        FUZZ_CHECK(!value.isUndefined());
        FUZZ_CHECK(!layout.displayName(path).isEmpty());
        FUZZ_CHECK(!layout.displayValue(path, value).isEmpty());
        if (value.isDouble()) {
            FUZZ_CHECK(value.toDouble() >= 0.0 && value.toDouble() <= 4294967295.0);
            FUZZ_CHECK(static_cast<double>(value.toInteger()) == value.toDouble());
        }
        if (const auto address = parseDottedAddress(value.toString())) {
            FUZZ_CHECK(dottedAddress(*address) == value.toString());
        }
    }
    const QJsonObject written = layout.write(values);
    FUZZ_CHECK(written.size() == section.toObject().size());
    FieldValues again;
    FUZZ_CHECK(layout.read(written, again, error));
    FUZZ_CHECK(again == values);
}

void checkOemPump(const QJsonValue& section, const PumpDetails& details) {
    FieldValues values;
    QString error;
    if (!section.isObject() ||
        !oemPump::PumpSettingsOemPumpObject::layout().read(section.toObject(), values, error)) {
        return;
    }
    const PumpSettingsResultType result =
        oemPump::PumpSettingsOemPumpObject::checkCompatible(values, details);
    FUZZ_CHECK(result == PumpSettingsResultType::Success ||
               result == PumpSettingsResultType::IncompatiblePumpSettings);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto root = settingsDocumentRoot(bytes);
    if (!root) {
        return 0;
    }
    // A stepper analog pump with a nema24a motor and the BW-S16 head, with and without a network
    // module, as the seed files are.
    PumpDetails details;
    details.pumpType = 1;
    details.motorType = 3;
    details.headType = 4;
    checkOemPump(root->value(QStringLiteral("oemPump")), details);
    details.isNetworkPump = 1;
    checkOemPump(root->value(QStringLiteral("oemPump")), details);
    checkSection(oemPump::PumpSettingsOemPumpObject::layout(),
                 root->value(QStringLiteral("oemPump")));
    checkSection(analog::PumpSettingsAnalogObject::layout(), root->value(QStringLiteral("analog")));
    checkSection(network::PumpSettingsNetworkObject::layout(),
                 root->value(QStringLiteral("network")));
    return 0;
}
