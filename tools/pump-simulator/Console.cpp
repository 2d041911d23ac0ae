#include "Console.h"

#include "PumpCatalogue.h"
#include "PumpSimulator.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <unistd.h>

namespace simulator {

namespace {

std::optional<bool> onOff(const QString& word) {
    if (word == QLatin1String("on") || word == QLatin1String("open")) {
        return true;
    }
    if (word == QLatin1String("off") || word == QLatin1String("close")) {
        return false;
    }
    return std::nullopt;
}

QString address(std::uint32_t value) {
    return QStringLiteral("%1.%2.%3.%4")
        .arg(value >> 24U)
        .arg((value >> 16U) & 0xFFU)
        .arg((value >> 8U) & 0xFFU)
        .arg(value & 0xFFU);
}

// Every setting an application's settings file carries, so that a load can be seen here.
QString settingsText(const PumpSettings& settings) {
    QStringList lines{
        QStringLiteral("control input %1, enable-line speed %2 drpm, prime speed %3 drpm")
            .arg(catalogue::controlInputName(settings.controlInput))
            .arg(settings.enableLineSpeedDrpm)
            .arg(settings.primeSpeedDrpm),
        QStringLiteral("acceleration %1 rpm/s, deceleration %2 rpm/s, head %3")
            .arg(static_cast<double>(settings.accelerationRpmPerSec))
            .arg(static_cast<double>(settings.decelerationRpmPerSec))
            .arg(QLatin1String(catalogue::pumpHeads()[settings.headType].name))};
    const char* const inputs[kSpeedInputCount] = {"current", "voltage", "frequency"};
    const std::uint32_t samples[kSpeedInputCount] = {settings.numSamplesCurrent,
                                                     settings.numSamplesVoltage, 0};
    for (std::size_t i = 0; i < kSpeedInputCount; ++i) {
        const SpeedRangeProfile& range = settings.speedRanges[i];
        QString line = QStringLiteral("%1: %2..%3 drpm over input %4..%5, hysteresis %6")
                           .arg(QLatin1String(inputs[i]))
                           .arg(range.minimumSpeedDrpm)
                           .arg(range.maximumSpeedDrpm)
                           .arg(range.minimumInput)
                           .arg(range.maximumInput)
                           .arg(range.hysteresis);
        if (samples[i] != 0) {
            line += QStringLiteral(", filter %1 samples").arg(samples[i]);
        }
        lines.append(line);
    }
    const IpConfig& ip = settings.ipConfig;
    lines.append(QStringLiteral("network: address %1, mask %2, gateway %3, DHCP %4")
                     .arg(address(ip.address), address(ip.subnetMask), address(ip.gateway),
                          ip.dhcpEnabled ? QStringLiteral("on") : QStringLiteral("off")));
    return lines.join(QLatin1Char('\n'));
}

} // namespace

Console::Console(PumpSimulator& simulator, QObject* parent)
    : QObject(parent)
    , mSimulator(simulator) {}

QString Console::helpText() {
    return QStringLiteral(
        "Commands:\n"
        "  cover open|close              open or close the pump-head cover\n"
        "  fault N                       raise fault type N (1..14)\n"
        "  ack                           acknowledge all faults\n"
        "  heat [DEGREES]                heat the drive by DEGREES (default 60) above normal\n"
        "  cool                          back to normal temperature\n"
        "  prime on|off                  the prime input\n"
        "  enable on|off                 the enable line\n"
        "  input current|voltage|frequency VALUE   analog input in uA, mV or Hz\n"
        "  restart                       restart the pump\n"
        "  unplug                        close the line and exit\n"
        "  status                        link, session and machine state\n"
        "  settings                      the settings a settings file carries\n"
        "  log                           print the event log\n"
        "  help                          this text\n"
        "  quit                          exit");
}

void Console::start() {
    mNotifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(mNotifier, &QSocketNotifier::activated, this, &Console::readInput);
}

void Console::readInput() {
    char buffer[512];
    const ssize_t count = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (count <= 0) {
        // End of input, or a terminal we may not read in the background: the pump runs on
        // without a console.
        mNotifier->setEnabled(false);
        return;
    }
    mPartialLine.append(buffer, static_cast<qsizetype>(count));
    qsizetype newline = 0;
    while ((newline = mPartialLine.indexOf('\n')) >= 0) {
        const QString line = QString::fromLocal8Bit(mPartialLine.left(newline)).trimmed();
        mPartialLine.remove(0, newline + 1);
        if (line.isEmpty()) {
            continue;
        }
        const QString answer = execute(line);
        std::fprintf(stdout, "%s\n", qPrintable(answer));
        std::fflush(stdout);
    }
}

QString Console::execute(const QString& line) {
    const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString command = words.value(0).toLower();
    const QString argument = words.value(1).toLower();
    PumpModel& model = mSimulator.model();

    if (command == QLatin1String("help")) {
        return helpText();
    }
    if (command == QLatin1String("cover") && onOff(argument)) {
        model.setCoverOpen(*onOff(argument));
        return model.coverOpen() ? QStringLiteral("cover open") : QStringLiteral("cover closed");
    }
    if (command == QLatin1String("fault")) {
        bool ok = false;
        const uint type = argument.toUInt(&ok);
        if (ok && type <= 255 && model.raiseFault(static_cast<std::uint8_t>(type))) {
            return QStringLiteral("fault %1 raised: %2")
                .arg(type)
                .arg(catalogue::faultName(static_cast<std::uint8_t>(type)));
        }
        return QStringLiteral("fault: give a fault type 1..%1").arg(catalogue::kFaultTypeCount);
    }
    if (command == QLatin1String("ack")) {
        model.acknowledgeFaults();
        return QStringLiteral("faults acknowledged, fault word 0x%1")
            .arg(model.faults(), 8, 16, QLatin1Char('0'));
    }
    if (command == QLatin1String("heat")) {
        bool ok = true;
        const double degrees = words.size() > 1 ? argument.toDouble(&ok) : 60.0;
        if (!ok || degrees < 0.0) {
            return QStringLiteral("heat: give a number of degrees");
        }
        model.setHeat(degrees);
        return QStringLiteral("heating by %1 C").arg(degrees);
    }
    if (command == QLatin1String("cool")) {
        model.setHeat(0.0);
        return QStringLiteral("cooling");
    }
    if (command == QLatin1String("prime") && onOff(argument)) {
        model.setPrimeInput(*onOff(argument));
        return QStringLiteral("prime input %1").arg(argument);
    }
    if (command == QLatin1String("enable") && onOff(argument)) {
        model.setEnableLine(*onOff(argument));
        return QStringLiteral("enable line %1").arg(argument);
    }
    if (command == QLatin1String("input") && words.size() == 3) {
        bool ok = false;
        const double value = words.at(2).toDouble(&ok);
        const QStringList names{QStringLiteral("current"), QStringLiteral("voltage"),
                                QStringLiteral("frequency")};
        const auto index = names.indexOf(argument);
        if (ok && index >= 0 && value >= 0.0) {
            model.setAnalogInput(static_cast<SpeedInput>(index), value);
            return QStringLiteral("%1 input %2").arg(argument).arg(value);
        }
        return QStringLiteral("input: give current|voltage|frequency and a value >= 0");
    }
    if (command == QLatin1String("restart")) {
        mSimulator.restartPump();
        return QStringLiteral("restarting");
    }
    if (command == QLatin1String("unplug")) {
        mSimulator.unplug();
        return QStringLiteral("unplugged");
    }
    if (command == QLatin1String("status")) {
        return QStringLiteral("%1\nspeed %2 drpm (target %3), faults 0x%4, cover %5, "
                              "temperature %6 C, power %7 W")
            .arg(mSimulator.statusText())
            .arg(model.actualSpeedDrpm())
            .arg(model.targetSpeedDrpm())
            .arg(model.faults(), 8, 16, QLatin1Char('0'))
            .arg(model.coverOpen() ? QStringLiteral("open") : QStringLiteral("closed"))
            .arg(model.trueTemperatureC(), 0, 'f', 1)
            .arg(model.powerW(), 0, 'f', 1);
    }
    if (command == QLatin1String("settings")) {
        return settingsText(model.settings());
    }
    if (command == QLatin1String("log")) {
        const QStringList& entries = model.eventLog().entries();
        return entries.isEmpty() ? QStringLiteral("(event log empty)")
                                 : entries.join(QLatin1Char('\n'));
    }
    if (command == QLatin1String("quit")) {
        emit quitRequested();
        return QStringLiteral("bye");
    }
    return QStringLiteral("unknown command: %1 (try help)").arg(line);
}

} // namespace simulator
