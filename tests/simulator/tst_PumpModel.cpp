// The simulated machine in simulated time: ramps, what stops the motor, the inputs that command
// it, and the faults that arise on their own.

#include "tools/pump-simulator/Console.h"
#include "tools/pump-simulator/PumpCatalogue.h"
#include "tools/pump-simulator/PumpModel.h"
#include "tools/pump-simulator/PumpSimulator.h"

#include <QSignalSpy>

#include <QTest>

using simulator::PumpModel;
using simulator::SimulatorOptions;
using simulator::SpeedInput;

namespace {
void run(PumpModel& model, int ms) {
    for (int t = 0; t < ms; t += PumpModel::kTickMs) {
        model.advance(PumpModel::kTickMs);
    }
}
} // namespace

class tst_PumpModel : public QObject {
    Q_OBJECT

private slots:
    void ramps_followAccelerationAndDeceleration() {
        SimulatorOptions options;
        simulator::SimulatorClock clock;
        PumpModel model(options, clock);
        QVERIFY(model.setAcceleration(100.0F)); // 1000 drpm per second
        QVERIFY(model.setDeceleration(500.0F));
        QVERIFY(model.setApplicationSpeed(1000));
        run(model, 500);
        QCOMPARE(model.actualSpeedDrpm(), 500);
        QVERIFY(model.energised());
        QVERIFY(model.aligned()); // a stepper aligns within 300 ms
        run(model, 600);
        QCOMPARE(model.actualSpeedDrpm(), 1000);
        // Reversing: down at the deceleration rate, through standstill, up at the acceleration.
        QVERIFY(model.setApplicationSpeed(-1000));
        run(model, 200);
        QCOMPARE(model.actualSpeedDrpm(), 0);
        QCOMPARE(model.direction(), std::uint8_t{0});
        run(model, 300);
        QCOMPARE(model.actualSpeedDrpm(), -300);
        QCOMPARE(model.direction(), std::uint8_t{1});
        QVERIFY(!model.setApplicationSpeed(3001));
    }

    void coverAndFaults_stopTheMotorAndOnlyTheWarningLetsItRun() {
        SimulatorOptions options;
        simulator::SimulatorClock clock;
        PumpModel model(options, clock);
        QVERIFY(model.setApplicationSpeed(800));
        model.setCoverOpen(true);
        QCOMPARE(model.targetSpeedDrpm(), 0);
        model.setCoverOpen(false);
        QCOMPARE(model.targetSpeedDrpm(), 800);
        QVERIFY(model.raiseFault(simulator::catalogue::kFaultOverTemperatureWarning));
        QCOMPARE(model.targetSpeedDrpm(), 800);
        QVERIFY(model.raiseFault(5));
        QCOMPARE(model.targetSpeedDrpm(), 0);
        QCOMPARE(model.faults(), std::uint32_t{(1u << 5) | (1u << 6)});
        model.acknowledgeFaults();
        QCOMPARE(model.faults(), std::uint32_t{0});
        QCOMPARE(model.targetSpeedDrpm(), 800);
        QVERIFY(!model.raiseFault(0));
        QVERIFY(!model.raiseFault(15));
    }

    void heat_raisesOverTemperatureFaultsThatPersistWhileHot() {
        SimulatorOptions options;
        simulator::SimulatorClock clock;
        PumpModel model(options, clock);
        model.setHeat(70.0);
        run(model, 30000);
        QVERIFY(model.faults() & (1u << simulator::catalogue::kFaultOverTemperatureWarning));
        QVERIFY(model.trueTemperatureC() > PumpModel::kWarningTemperatureC);
        model.acknowledgeFaults(); // still hot: the warning comes straight back
        QVERIFY(model.faults() & (1u << simulator::catalogue::kFaultOverTemperatureWarning));
        run(model, 60000);
        QVERIFY(model.faults() & (1u << simulator::catalogue::kFaultOverTemperatureShutdown));
        model.setHeat(0.0);
        run(model, 60000);
        model.acknowledgeFaults();
        QCOMPARE(model.faults(), std::uint32_t{0});
        QVERIFY(model.eventLog().entries().join('|').contains("Fault: Over temperature shutdown"));
    }

    void inputs_commandTheSpeedThroughTheControlInput() {
        SimulatorOptions options;
        simulator::SimulatorClock clock;
        PumpModel model(options, clock);
        QVERIFY(model.setControlInput(3)); // current
        model.setAnalogInput(SpeedInput::Current, 20000.0);
        QVERIFY(model.commandedSpeedDrpm(SpeedInput::Current) >= 2990);
        QCOMPARE(static_cast<std::uint32_t>(model.targetSpeedDrpm()),
                 model.commandedSpeedDrpm(SpeedInput::Current));
        // Within the hysteresis (100 uA) the commanded speed does not move.
        const std::uint32_t before = model.commandedSpeedDrpm(SpeedInput::Current);
        model.setAnalogInput(SpeedInput::Current, 19960.0);
        QCOMPARE(model.commandedSpeedDrpm(SpeedInput::Current), before);

        QVERIFY(model.setControlInput(1)); // enable line
        QCOMPARE(model.targetSpeedDrpm(), 0);
        model.setEnableLine(true);
        QCOMPARE(model.targetSpeedDrpm(), 1000);
        model.setPrimeInput(true); // prime wins over the control input
        QCOMPARE(model.targetSpeedDrpm(), 2000);
        QVERIFY(!model.setControlInput(7));
    }

    void filterData_spreadShrinksWithTheSampleCount() {
        SimulatorOptions options;
        simulator::SimulatorClock clock;
        PumpModel model(options, clock);
        QVERIFY(model.setNumSamples(SpeedInput::Voltage, 1));
        const simulator::FilterData one = model.nextFilterData(SpeedInput::Voltage);
        QVERIFY(model.setNumSamples(SpeedInput::Voltage, 256));
        const simulator::FilterData many = model.nextFilterData(SpeedInput::Voltage);
        QVERIFY(one.outputVariance > 100.0F * many.outputVariance);
        QVERIFY(many.inputVariance > 100.0F * many.outputVariance);
    }

    void clampSpeedsToHead_speedsAboveTheFittedHeadsRatingAreReduced() {
        SimulatorOptions options;
        options.headType = 24; // BW-X24, rated 1650 drpm
        simulator::SimulatorClock clock;
        PumpModel plain(options, clock);
        QVERIFY(plain.setPrimeSpeed(2000));
        QCOMPARE(plain.settings().primeSpeedDrpm, 2000u);

        options.clampSpeedsToHead = true;
        PumpModel model(options, clock);
        QVERIFY(model.setPrimeSpeed(2000));
        QCOMPARE(model.settings().primeSpeedDrpm, 1650u);
        QVERIFY(model.setEnableLineSpeed(1651));
        QCOMPARE(model.settings().enableLineSpeedDrpm, 1650u);
        QVERIFY(model.setSpeedRange(SpeedInput::Voltage, {1000, 3000, 0, 10000, 50}));
        QCOMPARE(model.settings().speedRanges[1].minimumSpeedDrpm, 1000u);
        QCOMPARE(model.settings().speedRanges[1].maximumSpeedDrpm, 1650u);
        QVERIFY(model.eventLog().entries().last().contains("reduced to the head's rated 1650"));
        QVERIFY(model.setPrimeSpeed(1650));
        QCOMPARE(model.settings().primeSpeedDrpm, 1650u);
        // A pump without a head has no rating to keep to.
        QVERIFY(model.setHead(0));
        QVERIFY(model.setPrimeSpeed(3000));
        QCOMPARE(model.settings().primeSpeedDrpm, 3000u);
    }

    void console_commandsDriveTheMachine() {
        SimulatorOptions options;
        simulator::PumpSimulator pump(options); // no line needed
        simulator::Console console(pump);
        PumpModel& model = pump.model();
        QVERIFY(console.execute("help").contains("cover open|close"));
        QCOMPARE(console.execute("cover open"), QStringLiteral("cover open"));
        QVERIFY(model.coverOpen());
        QCOMPARE(console.execute("cover close"), QStringLiteral("cover closed"));
        QCOMPARE(console.execute("fault 2"), QStringLiteral("fault 2 raised: Undervoltage"));
        QCOMPARE(console.execute("fault 0"), QStringLiteral("fault: give a fault type 1..14"));
        QCOMPARE(console.execute("ack"),
                 QStringLiteral("faults acknowledged, fault word 0x00000000"));
        QCOMPARE(console.execute("prime on"), QStringLiteral("prime input on"));
        QVERIFY(model.primeInputActive());
        QCOMPARE(console.execute("prime off"), QStringLiteral("prime input off"));
        QCOMPARE(console.execute("enable on"), QStringLiteral("enable line on"));
        QVERIFY(model.enableLineAsserted());
        QCOMPARE(console.execute("input voltage 10000"), QStringLiteral("voltage input 10000"));
        QVERIFY(model.commandedSpeedDrpm(SpeedInput::Voltage) >= 2990);
        QVERIFY(console.execute("input pressure 3").startsWith("input: give"));
        QCOMPARE(console.execute("heat 80"), QStringLiteral("heating by 80 C"));
        run(model, 30000);
        QVERIFY(model.faults() & (1u << simulator::catalogue::kFaultOverTemperatureWarning));
        QCOMPARE(console.execute("cool"), QStringLiteral("cooling"));
        QVERIFY(console.execute("status").contains("session closed"));
        QVERIFY(console.execute("log").contains("Prime started"));
        QVERIFY(model.setPrimeSpeed(1234));
        QVERIFY(console.execute("settings").contains("prime speed 1234 drpm"));
        QVERIFY(console.execute("settings").contains("voltage: 0..3000 drpm over input 0..10000"));
        QCOMPARE(console.execute("restart"), QStringLiteral("restarting"));
        QVERIFY(model.eventLog().entries().last().contains("Power on"));
        QSignalSpy quit(&console, &simulator::Console::quitRequested);
        QCOMPARE(console.execute("frobnicate"),
                 QStringLiteral("unknown command: frobnicate (try help)"));
        QCOMPARE(console.execute("quit"), QStringLiteral("bye"));
        QCOMPARE(quit.count(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_PumpModel)
#include "tst_PumpModel.moc"
