// CPU cost of the pump values on the link thread and on the user-interface thread: every
// streaming value subscribed at its default period against the pump simulator, each update
// delivered queued to this (the user-interface) thread as the controllers receive them.
// Prints the CPU time of both threads as a share of one core. Usage: values_cpu_bench [SECONDS]

#include "QtApps/Common/Logger/LogSetup.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "ThreadCpu.h"
#include "tests/support/SimulatorLink.h"

#include <QCoreApplication>

#include <cstdio>

using namespace communication;
using bench::ThreadShares;
using testsupport::SimulatorLink;

namespace {

struct Receiver : QObject {
    long updates = 0;
    template <typename Value, typename Owner, typename... Args>
    void listen(Value& value, void (Owner::*signal)(Args...)) {
        connect(static_cast<Owner*>(&value), signal, this, [this](Args...) { ++updates; });
        QMetaObject::invokeMethod(&value, &PumpValueBase::subscribe);
    }
};

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    // Gives-ups and refused sends are part of what the run shows.
    logger::ConfigureDefaults();
    const int seconds = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 30;

    SimulatorLink link({}, SimulatorLink::Values::With);
    QString error;
    if (!link.start(error)) {
        std::fprintf(stderr, "values_cpu_bench: %s\n", qPrintable(error));
        return 1;
    }
    PumpValues& values = link.values();
    Receiver ui;
    ui.listen(values.get<PumpActualSpeed>(), &PumpActualSpeed::actualSpeedChanged);
    ui.listen(values.get<PumpIsAligned>(), &PumpIsAligned::isAlignedChanged);
    ui.listen(values.get<MotorIsEnergized>(), &MotorIsEnergized::isEnergizedChanged);
    ui.listen(values.get<PumpApplicationSpeed>(),
              &PumpApplicationSpeed::getApplicationSpeedResponse);
    ui.listen(values.get<PumpApplicationOverrideActive>(),
              &PumpApplicationOverrideActive::getApplicationOverrideActiveResponse);
    ui.listen(values.get<PumpMaxApplicationSpeed>(),
              &PumpMaxApplicationSpeed::getMaxApplicationSpeedResponse);
    ui.listen(values.get<PumpFaults>(), &PumpFaults::faultsChanged);
    ui.listen(values.get<PumpCoverStatus>(), &PumpCoverStatus::coverStatusChanged);
    ui.listen(values.get<PumpDirection>(), &PumpDirection::directionChanged);
    ui.listen(values.get<PumpPowerUsage>(), &PumpPowerUsage::powerUsageChanged);
    ui.listen(values.get<PumpPrimeInputState>(), &PumpPrimeInputState::primeInputStateChanged);
    ui.listen(values.get<PumpPrimeSpeed>(), &PumpPrimeSpeed::getPrimeSpeedResponse);
    ui.listen(values.get<PumpInputCurrent>(), &PumpInputCurrent::inputCurrentChanged);
    ui.listen(values.get<PumpInputVoltage>(), &PumpInputVoltage::inputVoltageChanged);
    ui.listen(values.get<PumpInputFrequency>(), &PumpInputFrequency::inputFrequencyChanged);
    ui.listen(values.get<PumpBusVoltage>(), &PumpBusVoltage::busVoltageChanged);
    ui.listen(values.get<PumpTemperature>(), &PumpTemperature::tempChanged);
    ui.listen(values.get<PumpAnalogFilterDataCurrent>(),
              &PumpAnalogFilterDataBase::filterDataChanged);
    ui.listen(values.get<PumpAnalogFilterDataVoltage>(),
              &PumpAnalogFilterDataBase::filterDataChanged);
    ui.listen(values.get<PumpCurrentTargetSpeed>(),
              &PumpCurrentTargetSpeed::currentTargetSpeedChanged);
    ui.listen(values.get<PumpVoltageTargetSpeed>(),
              &PumpVoltageTargetSpeed::voltageTargetSpeedChanged);
    ui.listen(values.get<PumpFrequencyTargetSpeed>(),
              &PumpFrequencyTargetSpeed::frequencyTargetSpeedChanged);
    ui.listen(values.get<PumpEnableLineAsserted>(),
              &PumpEnableLineAsserted::enableLineAssertedChanged);

    bench::runFor(1000); // subscriptions in place, the first answers in
    const long updatesStart = ui.updates;
    const ThreadShares shares = ThreadShares::measure(link, seconds);

    std::printf("values_cpu_bench: %d s, %ld updates (%.0f/s)\n", seconds,
                ui.updates - updatesStart,
                static_cast<double>(ui.updates - updatesStart) / seconds);
    shares.print(3);
    return 0;
}
