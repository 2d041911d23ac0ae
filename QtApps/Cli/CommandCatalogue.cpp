#include "CommandCatalogue.h"

#include "ClearFaultsCommand.h"
#include "ClearLogCommand.h"
#include "CliInvocation.h"
#include "ExportLogCommand.h"
#include "FaultsCommand.h"
#include "InfoCommand.h"
#include "LoadSettingsCommand.h"
#include "PortsCommand.h"
#include "SaveSettingsCommand.h"
#include "UpdateFirmwareCommand.h"
#include "WatchCommand.h"

namespace cli {

namespace {

// The help is in English, like the texts scripts read.
QString text(const char* source) {
    return QString::fromUtf8(source);
}

template <typename Type>
std::unique_ptr<Command> make(CommandContext& context) {
    return std::make_unique<Type>(context);
}

} // namespace

const QList<CommandEntry>& Commands() {
    static const QList<CommandEntry> commands{
        {QStringLiteral("ports"),
         {},
         {},
         {},
         text("Lists the serial ports (those the system lists and those given with --port) and "
              "probes each as the scan does, without starting a session. One line per port: "
              "its protocol version when a pump answered, else \"no answer\" or \"cannot be "
              "opened\". Exit status 3 when no pump answered."),
         QStringLiteral("brackwater-cli ports --port /dev/ttyUSB1"),
         &make<PortsCommand>},
        {QStringLiteral("info"),
         {},
         {},
         {},
         text("Prints the pump's identity and versions, one \"key: value\" line each: "
              "pumpSerial, partNumber, productDescription, deviceType, pumpType, motorType, "
              "headType, isStepperPump, isNetworkPump, appVersion (the pump's firmware), "
              "protocolVersion and cliVersion."),
         QStringLiteral("brackwater-cli --port COM3 info"),
         &make<InfoCommand>},
        {QStringLiteral("watch"),
         {},
         {QStringLiteral("seconds")},
         QStringLiteral("[--seconds N]"),
         text("Subscribes the live readings of the status panel and prints each as it arrives: "
              "time, name, value and unit (speed rpm, direction, supply V, temperature C, power "
              "W, inputCurrent mA, inputVoltage V, inputFrequency Hz, coverOpen, primeActive, "
              "enableLineAsserted, motorEnergized, faults). Runs for N seconds, or until "
              "Ctrl-C; with --json, one JSON object per line."),
         QStringLiteral("brackwater-cli watch --seconds 60 --json > readings.jsonl"),
         &make<WatchCommand>},
        {QStringLiteral("save-settings"),
         QStringLiteral("FILE"),
         {},
         QStringLiteral("FILE"),
         text("Saves the pump's settings to FILE (a JSON settings file, as the application "
              "writes it) and prints the result (\"Success\")."),
         QStringLiteral("brackwater-cli save-settings line3-pump.json"),
         &make<SaveSettingsCommand>},
        {QStringLiteral("load-settings"),
         QStringLiteral("FILE"),
         {QStringLiteral("dry-run")},
         QStringLiteral("FILE [--dry-run]"),
         text("Checks FILE against the pump and prints the preview, one setting a line "
              "(\"setting: pump value -> file value\" for each change), then loads it and "
              "prints the result (\"Success. Rebooting pump...\"); the pump restarts with its "
              "new settings. A file for another kind of pump fails with \"Incompatible pump "
              "settings\" and sends nothing. --dry-run prints the preview and sends nothing."),
         QStringLiteral("brackwater-cli load-settings line3-pump.json --dry-run"),
         &make<LoadSettingsCommand>},
        {QStringLiteral("export-log"),
         QStringLiteral("FILE"),
         {},
         QStringLiteral("FILE"),
         text("Reads the pump's event log and appends it to FILE in the application's export "
              "format (three header lines with the pump's serial number, its firmware version "
              "and this program's version, then one line per entry). Prints the number of "
              "entries."),
         QStringLiteral("brackwater-cli export-log pump-log.log"),
         &make<ExportLogCommand>},
        {QStringLiteral("clear-log"),
         {},
         {},
         {},
         text("Clears the pump's event log and prints \"Log cleared\"."),
         QStringLiteral("brackwater-cli clear-log"),
         &make<ClearLogCommand>},
        {QStringLiteral("faults"),
         {},
         {},
         {},
         text("Prints the active faults by name, one a line; nothing when there are none."),
         QStringLiteral("brackwater-cli faults"),
         &make<FaultsCommand>},
        {QStringLiteral("clear-faults"),
         {},
         {},
         {},
         text("Acknowledges the faults and prints \"Faults cleared\"; fails, naming them, when "
              "faults stay active (their cause persists)."),
         QStringLiteral("brackwater-cli clear-faults"),
         &make<ClearFaultsCommand>},
        {QStringLiteral("update-firmware"),
         QStringLiteral("BUNDLE"),
         {QStringLiteral("restore-settings")},
         QStringLiteral("BUNDLE [--restore-settings]"),
         text("Updates the pump's firmware from BUNDLE (a firmware bundle, ZIP), with the "
              "progress on standard error, and prints the end state (\"Update succeeded!\" once "
              "the pump runs the new firmware). The pump's settings are first saved to a backup "
              "file in the application's data folder (where is printed); --restore-settings "
              "loads them back once the pump is back."),
         QStringLiteral("brackwater-cli update-firmware firmware-1.16.1.zip --restore-settings"),
         &make<UpdateFirmwareCommand>},
    };
    return commands;
}

const CommandEntry* FindCommand(const QString& name) {
    for (const CommandEntry& entry : Commands()) {
        if (entry.name == name) {
            return &entry;
        }
    }
    return nullptr;
}

std::unique_ptr<Command> CreateCommand(CommandContext& context) {
    const CommandEntry* entry = FindCommand(context.invocation.command);
    return entry != nullptr ? entry->create(context) : nullptr;
}

} // namespace cli
