#include "PumpFaultsModelsCommon.h"

#include <QCoreApplication>

#include <array>

namespace models::faults {

namespace {

struct FaultText {
    const char* title;
    const char* name;
};

constexpr const char* kContext = "PumpFaultsModel";

// In fault-index order. The titles group the inverter faults under the fault they refine.
constexpr std::array<FaultText, PumpFaultsModelsCommon::kFaultCount> kFaultTexts = {{
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Overvoltage")},
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Undervoltage")},
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Overcurrent")},
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Software")},
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Stall")},
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Over temperature warning")},
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Over temperature shutdown")},
    {QT_TRANSLATE_NOOP("PumpFaultsModel", "Overcurrent"),
     QT_TRANSLATE_NOOP("PumpFaultsModel", "Inverter VDS overcurrent")},
    {QT_TRANSLATE_NOOP("PumpFaultsModel", "Overcurrent"),
     QT_TRANSLATE_NOOP("PumpFaultsModel", "Inverter sense amplifier overcurrent")},
    {QT_TRANSLATE_NOOP("PumpFaultsModel", "Undervoltage"),
     QT_TRANSLATE_NOOP("PumpFaultsModel", "Inverter under voltage lockout")},
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Inverter gate drive")},
    {QT_TRANSLATE_NOOP("PumpFaultsModel", "Undervoltage"),
     QT_TRANSLATE_NOOP("PumpFaultsModel", "Inverter charge pump undervoltage")},
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Voltage range")},
    {"", QT_TRANSLATE_NOOP("PumpFaultsModel", "Speed")},
}};

QString translated(const char* text) {
    return *text == '\0' ? QString() : QCoreApplication::translate(kContext, text);
}

struct FaultTable {
    std::array<FaultInfo, PumpFaultsModelsCommon::kFaultCount> entries;
    FaultInfo unknown;
};

// Built on the first call, by whichever thread comes first; C++ makes the initialisation of a
// function's static thread-safe, and later calls only read it.
const FaultTable& table() {
    static const FaultTable built = [] {
        FaultTable faults;
        for (std::size_t i = 0; i < kFaultTexts.size(); ++i) {
            faults.entries[i] = {translated(kFaultTexts[i].title), translated(kFaultTexts[i].name)};
        }
        faults.unknown = {QString(), QCoreApplication::translate("PumpFaultsModel", "Unknown")};
        return faults;
    }();
    return built;
}

} // namespace

const FaultInfo& PumpFaultsModelsCommon::faultInfo(uint index) {
    const FaultTable& faults = table();
    return isFaultIndex(index) ? faults.entries[index] : faults.unknown;
}

QList<FaultRow> PumpFaultsModelsCommon::inactiveRows() {
    QList<FaultRow> rows;
    rows.reserve(kFaultCount);
    for (uint index = 0; index < communication::PumpFaults::kFaultCount; ++index) {
        const FaultInfo& info = faultInfo(index);
        rows.append({info.title, info.name, false});
    }
    return rows;
}

} // namespace models::faults
