#include "SimulatorOptions.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace simulator {

namespace {

struct Definitions {
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Show this help.")};
    QCommandLineOption pty{QStringLiteral("pty"),
                           QStringLiteral("Create a pseudo-terminal pair and print the path of "
                                          "its slave on the first line of standard output "
                                          "(default).")};
    QCommandLineOption device{QStringLiteral("device"),
                              QStringLiteral("Serve the pump on the serial device at PATH."),
                              QStringLiteral("PATH")};
    QCommandLineOption variant{QStringLiteral("variant"),
                               QStringLiteral("Pump variant: analog or network (default analog)."),
                               QStringLiteral("KIND"), QStringLiteral("analog")};
    QCommandLineOption motor{QStringLiteral("motor"),
                             QStringLiteral("Motor: stepper or bldc (default stepper)."),
                             QStringLiteral("KIND"), QStringLiteral("stepper")};
    QCommandLineOption deviceType{QStringLiteral("device-type"),
                                  QStringLiteral("Device type number reported by the pump "
                                                 "(default: from variant and motor)."),
                                  QStringLiteral("N")};
    QCommandLineOption motorType{QStringLiteral("motor-type"),
                                 QStringLiteral("Motor type number (default: from motor)."),
                                 QStringLiteral("N")};
    QCommandLineOption head{QStringLiteral("head"),
                            QStringLiteral("Fitted pump-head index 0..26 (default 0)."),
                            QStringLiteral("N")};
    QCommandLineOption serial{QStringLiteral("serial"),
                              QStringLiteral("Serial number (at most 32 characters)."),
                              QStringLiteral("TEXT")};
    QCommandLineOption partNumber{QStringLiteral("part-number"),
                                  QStringLiteral("Part number (at most 32 characters)."),
                                  QStringLiteral("TEXT")};
    QCommandLineOption description{QStringLiteral("description"),
                                   QStringLiteral("Product description (at most 64 characters)."),
                                   QStringLiteral("TEXT")};
    QCommandLineOption firmware{QStringLiteral("firmware-version"),
                                QStringLiteral("Application firmware version (default 1.16.1)."),
                                QStringLiteral("X.Y.Z")};
    QCommandLineOption protocol{QStringLiteral("protocol-version"),
                                QStringLiteral("Protocol version (default 1.0.0)."),
                                QStringLiteral("X.Y.Z")};
    QCommandLineOption maxSubscriptions{
        QStringLiteral("max-subscriptions"),
        QStringLiteral("Subscriptions held at once; more are refused (default 32)."),
        QStringLiteral("N")};
    QCommandLineOption clampSpeeds{
        QStringLiteral("clamp-speeds-to-head"),
        QStringLiteral("Reduce prime, enable-line and speed-range speeds set above the fitted "
                       "head's rated speed to it, and acknowledge the Set.")};
    QCommandLineOption latency{QStringLiteral("latency"),
                               QStringLiteral("Delay before each frame to the application "
                                              "(default 0)."),
                               QStringLiteral("MS")};
    QCommandLineOption dropIn{QStringLiteral("drop-in"),
                              QStringLiteral("Probability of losing a received frame."),
                              QStringLiteral("RATE")};
    QCommandLineOption dropOut{QStringLiteral("drop-out"),
                               QStringLiteral("Probability of losing a sent frame."),
                               QStringLiteral("RATE")};
    QCommandLineOption corruptIn{QStringLiteral("corrupt-in"),
                                 QStringLiteral("Probability of one flipped bit in a received "
                                                "frame."),
                                 QStringLiteral("RATE")};
    QCommandLineOption corruptOut{QStringLiteral("corrupt-out"),
                                  QStringLiteral("Probability of one flipped bit in a sent "
                                                 "frame."),
                                  QStringLiteral("RATE")};
    QCommandLineOption duplicateIn{QStringLiteral("duplicate-in"),
                                   QStringLiteral("Probability of handling a received frame "
                                                  "twice."),
                                   QStringLiteral("RATE")};
    QCommandLineOption duplicateOut{QStringLiteral("duplicate-out"),
                                    QStringLiteral("Probability of sending a frame twice."),
                                    QStringLiteral("RATE")};
    QCommandLineOption stall{QStringLiteral("stall"),
                             QStringLiteral("Stalls: no answers for MS milliseconds at a time."),
                             QStringLiteral("MS")};
    QCommandLineOption stallInterval{QStringLiteral("stall-interval"),
                                     QStringLiteral("Time from the start of one stall to the "
                                                    "next (default 5000)."),
                                     QStringLiteral("MS")};
    QCommandLineOption pace{QStringLiteral("pace"),
                            QStringLiteral("Send bytes no faster than 115200 8N1 carries them "
                                           "(11520 bytes/s).")};
    QCommandLineOption firmwareFault{
        QStringLiteral("firmware-fault"),
        QStringLiteral("Fail the first firmware transfer once: erase (erase failed), program "
                       "(program failed halfway), verify (CRC mismatch) or silent (stop asking "
                       "for data halfway)."),
        QStringLiteral("KIND")};
    QCommandLineOption firmwareResets{
        QStringLiteral("firmware-resets-settings"),
        QStringLiteral("New firmware starts with the default settings (the fitted head stays).")};
    QCommandLineOption unplug{QStringLiteral("unplug-after"),
                              QStringLiteral("Close the line after MS milliseconds, as if the "
                                             "cable were pulled, and exit."),
                              QStringLiteral("MS")};
    QCommandLineOption seed{QStringLiteral("seed"),
                            QStringLiteral("Seed of every random choice (default: from the "
                                           "clock, printed on standard error)."),
                            QStringLiteral("N")};
    QCommandLineOption frameLog{QStringLiteral("frame-log"),
                                QStringLiteral("Log every frame in both directions, in hex and "
                                               "decoded, to FILE (- for standard error)."),
                                QStringLiteral("FILE")};
    QCommandLineOption controlInput{
        QStringLiteral("control-input"),
        QStringLiteral("Control input at power-on: none, enable, voltage, current, frequency, "
                       "application or network (default application)."),
        QStringLiteral("KIND")};
    QCommandLineOption replay{QStringLiteral("replay"),
                              QStringLiteral("Play back the pump's side of the session recording "
                                             "FILE instead of simulating a pump."),
                              QStringLiteral("FILE")};
    QCommandLineOption noConsole{QStringLiteral("no-console"),
                                 QStringLiteral("Do not read console commands from standard "
                                                "input.")};

    void addTo(QCommandLineParser& parser) const {
        parser.addOptions(
            {help,           pty,          device,      variant,          motor,
             deviceType,     motorType,    head,        serial,           partNumber,
             description,    firmware,     protocol,    maxSubscriptions, clampSpeeds,
             latency,        dropIn,       dropOut,     corruptIn,        corruptOut,
             duplicateIn,    duplicateOut, stall,       stallInterval,    pace,
             unplug,         seed,         frameLog,    noConsole,        firmwareFault,
             firmwareResets, replay,       controlInput});
    }
};

bool parseInt(const QString& text, int minimum, int maximum, int& out) {
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok || value < minimum || value > maximum) {
        return false;
    }
    out = value;
    return true;
}

bool parseRate(const QString& text, double& out) {
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || value < 0.0 || value > 1.0) {
        return false;
    }
    out = value;
    return true;
}

bool parseVersion(const QString& text, halyard::SemanticVersion& out) {
    static const QRegularExpression pattern(
        QStringLiteral("^(\\d{1,3})\\.(\\d{1,3})\\.(\\d{1,3})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        return false;
    }
    int parts[3] = {};
    for (int i = 0; i < 3; ++i) {
        if (!parseInt(match.captured(i + 1), 0, 255, parts[i])) {
            return false;
        }
    }
    out = {static_cast<std::uint8_t>(parts[0]), static_cast<std::uint8_t>(parts[1]),
           static_cast<std::uint8_t>(parts[2])};
    return true;
}

} // namespace

std::uint8_t SimulatorOptions::effectiveDeviceType() const {
    if (deviceType >= 0) {
        return static_cast<std::uint8_t>(deviceType);
    }
    // Device type numbers: 1 stepper analog, 4 stepper network, 7 BLDC analog, 8 BLDC network.
    if (isStepper()) {
        return isNetwork() ? 4 : 1;
    }
    return isNetwork() ? 8 : 7;
}

std::uint8_t SimulatorOptions::effectiveMotorType() const {
    if (motorType >= 0) {
        return static_cast<std::uint8_t>(motorType);
    }
    return isStepper() ? 3 : 1; // nema24a or bldc
}

QString SimulatorOptions::helpText() {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A virtual pump drive on a serial line, for demos, tests and fault "
                       "injection."));
    Definitions().addTo(parser);
    return parser.helpText();
}

std::optional<SimulatorOptions> SimulatorOptions::parse(const QStringList& arguments,
                                                        QString& error, bool& helpRequested) {
    QCommandLineParser parser;
    const Definitions d;
    d.addTo(parser);
    helpRequested = false;
    if (!parser.parse(arguments)) {
        error = parser.errorText();
        return std::nullopt;
    }
    if (parser.isSet(d.help)) {
        helpRequested = true;
        return std::nullopt;
    }
    if (!parser.positionalArguments().isEmpty()) {
        error = QStringLiteral("Unexpected argument: %1").arg(parser.positionalArguments().first());
        return std::nullopt;
    }

    SimulatorOptions options;
    auto fail = [&error](const QString& name, const QString& value) {
        error = QStringLiteral("Invalid value for --%1: %2").arg(name, value);
        return std::nullopt;
    };
    auto intOption = [&](const QCommandLineOption& option, int minimum, int maximum, int& out) {
        return !parser.isSet(option) || parseInt(parser.value(option), minimum, maximum, out);
    };
    auto rateOption = [&](const QCommandLineOption& option, double& out) {
        return !parser.isSet(option) || parseRate(parser.value(option), out);
    };

    if (parser.isSet(d.device) && parser.isSet(d.pty)) {
        error = QStringLiteral("Choose either --pty or --device, not both.");
        return std::nullopt;
    }
    if (parser.isSet(d.device)) {
        options.usePty = false;
        options.devicePath = parser.value(d.device);
    }
    options.paceAtLineRate = parser.isSet(d.pace);
    options.console = !parser.isSet(d.noConsole);
    options.clampSpeedsToHead = parser.isSet(d.clampSpeeds);

    const QString variant = parser.value(d.variant);
    if (variant == QLatin1String("analog")) {
        options.variant = Variant::Analog;
    } else if (variant == QLatin1String("network")) {
        options.variant = Variant::Network;
    } else {
        return fail(d.variant.names().first(), variant);
    }
    const QString motor = parser.value(d.motor);
    if (motor == QLatin1String("stepper")) {
        options.motor = Motor::Stepper;
    } else if (motor == QLatin1String("bldc")) {
        options.motor = Motor::Bldc;
    } else {
        return fail(d.motor.names().first(), motor);
    }

    const struct {
        const QCommandLineOption& option;
        int minimum;
        int maximum;
        int& out;
    } integers[] = {
        {d.deviceType, 0, 255, options.deviceType},
        {d.motorType, 0, 255, options.motorType},
        {d.maxSubscriptions, 0, 1000, options.maxSubscriptions},
        {d.latency, 0, 60000, options.replyLatencyMs},
        {d.stall, 0, 3600000, options.stallMs},
        {d.stallInterval, 1, 3600000, options.stallIntervalMs},
        {d.unplug, 0, 86400000, options.unplugAfterMs},
    };
    for (const auto& entry : integers) {
        if (!intOption(entry.option, entry.minimum, entry.maximum, entry.out)) {
            return fail(entry.option.names().first(), parser.value(entry.option));
        }
    }
    int head = 0;
    if (!intOption(d.head, 0, 26, head)) {
        return fail(d.head.names().first(), parser.value(d.head));
    }
    options.headType = static_cast<std::uint8_t>(head);
    if (options.stallMs >= options.stallIntervalMs && options.stallMs > 0) {
        error = QStringLiteral("--stall must be shorter than --stall-interval.");
        return std::nullopt;
    }

    const struct {
        const QCommandLineOption& option;
        double& out;
    } rates[] = {
        {d.dropIn, options.faultsIn.dropRate},
        {d.dropOut, options.faultsOut.dropRate},
        {d.corruptIn, options.faultsIn.corruptRate},
        {d.corruptOut, options.faultsOut.corruptRate},
        {d.duplicateIn, options.faultsIn.duplicateRate},
        {d.duplicateOut, options.faultsOut.duplicateRate},
    };
    for (const auto& entry : rates) {
        if (!rateOption(entry.option, entry.out)) {
            return fail(entry.option.names().first(), parser.value(entry.option));
        }
    }

    const struct {
        const QCommandLineOption& option;
        int limit;
        QString& out;
    } texts[] = {
        {d.serial, 32, options.serialNumber},
        {d.partNumber, 32, options.partNumber},
        {d.description, 64, options.productDescription},
    };
    for (const auto& entry : texts) {
        if (parser.isSet(entry.option)) {
            const QString value = parser.value(entry.option);
            if (value.toLocal8Bit().size() > entry.limit) {
                return fail(entry.option.names().first(), value);
            }
            entry.out = value;
        }
    }

    if (parser.isSet(d.firmware) &&
        !parseVersion(parser.value(d.firmware), options.firmwareVersion)) {
        return fail(d.firmware.names().first(), parser.value(d.firmware));
    }
    if (parser.isSet(d.protocol) &&
        !parseVersion(parser.value(d.protocol), options.protocolVersion)) {
        return fail(d.protocol.names().first(), parser.value(d.protocol));
    }
    if (parser.isSet(d.seed)) {
        bool ok = false;
        options.seed = parser.value(d.seed).toULongLong(&ok);
        if (!ok) {
            return fail(d.seed.names().first(), parser.value(d.seed));
        }
        options.seedGiven = true;
    }
    if (parser.isSet(d.firmwareFault)) {
        const QString fault = parser.value(d.firmwareFault);
        const struct {
            const char* name;
            FirmwareFault fault;
        } faults[] = {{"erase", FirmwareFault::Erase},
                      {"program", FirmwareFault::Program},
                      {"verify", FirmwareFault::Verify},
                      {"silent", FirmwareFault::Silent}};
        const auto* match =
            std::find_if(std::begin(faults), std::end(faults), [&fault](const auto& entry) {
                return fault == QLatin1String(entry.name);
            });
        if (match == std::end(faults)) {
            return fail(d.firmwareFault.names().first(), fault);
        }
        options.firmwareFault = match->fault;
    }
    if (parser.isSet(d.controlInput)) {
        // In the pump's numbering of its control inputs.
        const QStringList inputs{QStringLiteral("none"),      QStringLiteral("enable"),
                                 QStringLiteral("voltage"),   QStringLiteral("current"),
                                 QStringLiteral("frequency"), QStringLiteral("application"),
                                 QStringLiteral("network")};
        const auto index = inputs.indexOf(parser.value(d.controlInput));
        if (index < 0) {
            return fail(d.controlInput.names().first(), parser.value(d.controlInput));
        }
        options.controlInput = static_cast<std::uint8_t>(index);
    }
    options.firmwareResetsSettings = parser.isSet(d.firmwareResets);
    options.frameLogPath = parser.value(d.frameLog);
    options.replayPath = parser.value(d.replay);
    return options;
}

} // namespace simulator
