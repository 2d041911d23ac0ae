#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SignalCounter.h"
#include "tests/support/SimulatorLink.h"

#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

using namespace communication;
using communication::objects::QSpeedRangeProfile;
using testsupport::SignalCounter;
using testsupport::SimulatorLink;

namespace {

// Frames lost at random both ways; the seed keeps a failure reproducible.
const QStringList kLossyLine{QStringLiteral("--drop-in"),  QStringLiteral("0.05"),
                             QStringLiteral("--drop-out"), QStringLiteral("0.05"),
                             QStringLiteral("--seed"),     QStringLiteral("20261121")};
constexpr int kAnswerTimeoutMs = 5000;

} // namespace

// The values on the real link, on their own thread, against the pump simulator.
class ValuesEndToEndTest : public QObject {
    Q_OBJECT

private slots:
    void settableValues_areAcknowledgedAndReadBackDespiteLostFrames();
    void streamingValues_streamAtTheirDefaultPeriods();
    void networkCalibrationAndTorque_setsAreAcknowledgedDespiteLostFrames();
    void silentPump_setGivesUpAfterExactlyThreeSends();

private:
    // Calls `set` on the value's thread as the screens do, then waits for the acknowledgement
    // and for the read-back answer, which `answered` counts.
    void expectAcknowledgedAndReadBack(const char* name, PumpValueBase& value,
                                       SignalCounter& answered, std::function<void()> set);
};

void ValuesEndToEndTest::expectAcknowledgedAndReadBack(const char* name, PumpValueBase& value,
                                                       SignalCounter& answered,
                                                       std::function<void()> set) {
    SignalCounter successes(&value, &PumpValueBase::setSuccess);
    SignalCounter aborts(&value, &PumpValueBase::setValueAborted);
    const int answersBefore = answered.count;
    QVERIFY(QMetaObject::invokeMethod(&value, set));
    QTRY_VERIFY2_WITH_TIMEOUT(successes.count == 1 && answered.count > answersBefore, name,
                              kAnswerTimeoutMs);
    QVERIFY2(aborts.count == 0, name);
}

void ValuesEndToEndTest::settableValues_areAcknowledgedAndReadBackDespiteLostFrames() {
    SimulatorLink link(kLossyLine, SimulatorLink::Values::With);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    PumpValues& values = link.values();

    auto& speed = values.get<PumpApplicationSpeed>();
    SignalCounter speeds(&speed, &PumpApplicationSpeed::getApplicationSpeedResponse);
    expectAcknowledgedAndReadBack("ApplicationSpeed", speed, speeds,
                                  [&speed] { speed.setApplicationSpeed(-1500); });

    auto& enable = values.get<PumpApplicationSpeedEnable>();
    SignalCounter enables(&enable, &PumpApplicationSpeedEnable::getApplicationSpeedEnableResponse);
    expectAcknowledgedAndReadBack("ApplicationSpeedEnable", enable, enables,
                                  [&enable] { enable.setApplicationSpeedEnable(true); });

    auto& override = values.get<PumpApplicationOverrideActive>();
    SignalCounter overrides(&override,
                            &PumpApplicationOverrideActive::getApplicationOverrideActiveResponse);
    expectAcknowledgedAndReadBack("ApplicationOverrideActive", override, overrides,
                                  [&override] { override.setApplicationOverrideActive(true); });

    auto& input = values.get<PumpControlInput>();
    SignalCounter inputs(&input, &PumpControlInput::getControlInputResponse);
    expectAcknowledgedAndReadBack("ControlInput", input, inputs, [&input] {
        input.setControlInput(halyard::pump::ControlInput::Application);
    });

    auto& prime = values.get<PumpPrimeSpeed>();
    SignalCounter primes(&prime, &PumpPrimeSpeed::getPrimeSpeedResponse);
    expectAcknowledgedAndReadBack("PrimeSpeed", prime, primes,
                                  [&prime] { prime.setPrimeSpeed(1200); });

    auto& acceleration = values.get<PumpAcceleration>();
    SignalCounter accelerations(&acceleration, &PumpAcceleration::getAccelerationResponse);
    expectAcknowledgedAndReadBack("Acceleration", acceleration, accelerations,
                                  [&acceleration] { acceleration.setAcceleration(250.0F); });

    auto& deceleration = values.get<PumpDeceleration>();
    SignalCounter decelerations(&deceleration, &PumpDeceleration::getDecelerationResponse);
    expectAcknowledgedAndReadBack("Deceleration", deceleration, decelerations,
                                  [&deceleration] { deceleration.setDeceleration(300.0F); });

    auto& head = values.get<PumpHead>();
    SignalCounter heads(&head, &PumpHead::getHeadResponse);
    expectAcknowledgedAndReadBack("PumpHead", head, heads,
                                  [&head] { head.set(QStringLiteral("BW-T13")); });

    auto& cli = values.get<PumpPlecPortCliEnable>();
    SignalCounter clis(&cli, &PumpPlecPortCliEnable::cliEnableValue);
    expectAcknowledgedAndReadBack("PlecPortCliEnable", cli, clis,
                                  [&cli] { cli.setCliEnable(true); });

    auto& samples = values.get<PumpAnalogFilterNumSamplesCurrent>();
    SignalCounter sampleCounts(&samples, &PumpAnalogFilterNumSamplesBase::numSamplesChanged);
    expectAcknowledgedAndReadBack("NumSamplesCurrent", samples, sampleCounts,
                                  [&samples] { samples.setNumSamples(32); });

    auto& enableLine = values.get<PumpEnableLineSpeed>();
    SignalCounter enableLineSpeeds(&enableLine, &PumpEnableLineSpeed::getEnableLineSpeedResponse);
    expectAcknowledgedAndReadBack("EnableLineSpeed", enableLine, enableLineSpeeds,
                                  [&enableLine] { enableLine.setEnableLineSpeed(800); });

    auto& voltageRange = values.get<PumpVoltageSpeedRange>();
    SignalCounter voltageRanges(&voltageRange, &PumpSpeedRangeBase::getSpeedRangeResponse);
    expectAcknowledgedAndReadBack(
        "VoltageSpeedRange", voltageRange, voltageRanges, [&voltageRange] {
            voltageRange.setSpeedRange(QSpeedRangeProfile{0, 2000, 1000, 9000, 100});
        });

    // The hysteresis is read back through the profile of its input.
    auto& hysteresis = values.get<PumpVoltageHysteresis>();
    expectAcknowledgedAndReadBack("VoltageHysteresis", hysteresis, voltageRanges,
                                  [&hysteresis] { hysteresis.set(250.0F); });
}

void ValuesEndToEndTest::streamingValues_streamAtTheirDefaultPeriods() {
    SimulatorLink link(kLossyLine, SimulatorLink::Values::With);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    PumpValues& values = link.values();

    struct Stream {
        const char* name;
        PumpValueBase* value;
        int periodMs;
        std::unique_ptr<SignalCounter> updates;
    };
    std::vector<Stream> streams;
    const auto add = [&streams](const char* name, auto& value, int periodMs, auto signal) {
        streams.push_back(
            {name, &value, periodMs, std::make_unique<SignalCounter>(&value, signal)});
    };
    add("ActualSpeed", values.get<PumpActualSpeed>(), 100, &PumpActualSpeed::actualSpeedChanged);
    add("IsAligned", values.get<PumpIsAligned>(), 1000, &PumpIsAligned::isAlignedChanged);
    add("IsEnergized", values.get<MotorIsEnergized>(), 1000, &MotorIsEnergized::isEnergizedChanged);
    add("ApplicationSpeed", values.get<PumpApplicationSpeed>(), 1000,
        &PumpApplicationSpeed::getApplicationSpeedResponse);
    add("ApplicationOverrideActive", values.get<PumpApplicationOverrideActive>(), 100,
        &PumpApplicationOverrideActive::getApplicationOverrideActiveResponse);
    add("MaxApplicationSpeed", values.get<PumpMaxApplicationSpeed>(), 1000,
        &PumpMaxApplicationSpeed::getMaxApplicationSpeedResponse);
    add("Faults", values.get<PumpFaults>(), 1000, &PumpFaults::faultsChanged);
    add("CoverStatus", values.get<PumpCoverStatus>(), 1000, &PumpCoverStatus::coverStatusChanged);
    add("Direction", values.get<PumpDirection>(), 1000, &PumpDirection::directionChanged);
    add("PowerUsage", values.get<PumpPowerUsage>(), 1000, &PumpPowerUsage::powerUsageChanged);
    add("PrimeInputState", values.get<PumpPrimeInputState>(), 100,
        &PumpPrimeInputState::primeInputStateChanged);
    add("PrimeSpeed", values.get<PumpPrimeSpeed>(), 1000, &PumpPrimeSpeed::getPrimeSpeedResponse);
    add("InputCurrent", values.get<PumpInputCurrent>(), 1000,
        &PumpInputCurrent::inputCurrentChanged);
    add("InputVoltage", values.get<PumpInputVoltage>(), 1000,
        &PumpInputVoltage::inputVoltageChanged);
    add("InputFrequency", values.get<PumpInputFrequency>(), 1000,
        &PumpInputFrequency::inputFrequencyChanged);
    add("BusVoltage", values.get<PumpBusVoltage>(), 1000, &PumpBusVoltage::busVoltageChanged);
    add("Temperature", values.get<PumpTemperature>(), 1000, &PumpTemperature::tempChanged);
    add("FilterDataCurrent", values.get<PumpAnalogFilterDataCurrent>(), 30,
        &PumpAnalogFilterDataBase::filterDataChanged);
    add("FilterDataVoltage", values.get<PumpAnalogFilterDataVoltage>(), 30,
        &PumpAnalogFilterDataBase::filterDataChanged);
    add("CurrentTargetSpeed", values.get<PumpCurrentTargetSpeed>(), 1000,
        &PumpCurrentTargetSpeed::currentTargetSpeedChanged);
    add("VoltageTargetSpeed", values.get<PumpVoltageTargetSpeed>(), 1000,
        &PumpVoltageTargetSpeed::voltageTargetSpeedChanged);
    add("FrequencyTargetSpeed", values.get<PumpFrequencyTargetSpeed>(), 1000,
        &PumpFrequencyTargetSpeed::frequencyTargetSpeedChanged);
    add("EnableLineAsserted", values.get<PumpEnableLineAsserted>(), 1000,
        &PumpEnableLineAsserted::enableLineAssertedChanged);

    for (const Stream& stream : streams) {
        QVERIFY(QMetaObject::invokeMethod(stream.value, &PumpValueBase::subscribe));
    }
    // Once every subscription (with its retries) streams, count over a whole window.
    QTRY_VERIFY_WITH_TIMEOUT(std::all_of(streams.begin(), streams.end(),
                                         [](const Stream& s) { return s.updates->count > 0; }),
                             kAnswerTimeoutMs);
    for (Stream& stream : streams) {
        stream.updates->count = 0;
    }
    constexpr int kWindowMs = 4000;
    QTest::qWait(kWindowMs);

    for (const Stream& stream : streams) {
        const int expected = kWindowMs / stream.periodMs;
        const QByteArray what = QByteArray(stream.name) + ": " +
                                QByteArray::number(stream.updates->count) + " updates, about " +
                                QByteArray::number(expected) + " expected";
        // Lost frames and timer jitter take some; on-change updates may add a few.
        QVERIFY2(stream.updates->count >= expected * 6 / 10, what.constData());
        QVERIFY2(stream.updates->count <= expected * 3 / 2 + 2, what.constData());
    }
}

void ValuesEndToEndTest::networkCalibrationAndTorque_setsAreAcknowledgedDespiteLostFrames() {
    SimulatorLink link(kLossyLine +
                           QStringList{QStringLiteral("--variant"), QStringLiteral("network")},
                       SimulatorLink::Values::With);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    PumpValues& values = link.values();

    auto& ip = values.get<PumpNetworkIpConfig>();
    SignalCounter configs(&ip, &PumpNetworkIpConfig::getIpConfigResult);
    expectAcknowledgedAndReadBack("IpConfig", ip, configs, [&ip] {
        ip.set(halyard::protocol::IpConfig{false, 0xC0A8000A, 0xFFFFFF00, 0xC0A80001});
    });
    SignalCounter resets(&ip, &PumpNetworkIpConfig::ipResetResult);
    QVERIFY(QMetaObject::invokeMethod(&ip, [&ip] { ip.reset(); }));
    QTRY_COMPARE_WITH_TIMEOUT(resets.count, 1, kAnswerTimeoutMs);

    auto* calibration = &values.get<PumpAnalogCalibration>();
    SignalCounter calibrationsSet(calibration, &PumpAnalogCalibration::setCalibrationResult);
    SignalCounter calibrationsRead(calibration, &PumpAnalogCalibration::getCalibrationResult);
    QVERIFY(QMetaObject::invokeMethod(
        calibration, [calibration] { calibration->onSetCalibration(1, 1.02F, -3.5F); }));
    QTRY_VERIFY_WITH_TIMEOUT(calibrationsSet.count == 1 && calibrationsRead.count == 1,
                             kAnswerTimeoutMs);

    // Last: an accepted torque index reboots the pump.
    auto& torque = values.get<PumpTorqueIndex>();
    SignalCounter rebooted(&torque.pumpReset(), &PumpValueBase::setSuccess);
    QVERIFY(QMetaObject::invokeMethod(&torque, [&torque] { torque.setTorqueIndexAndReboot(1); }));
    QTRY_COMPARE_WITH_TIMEOUT(rebooted.count, 1, kAnswerTimeoutMs);
}

void ValuesEndToEndTest::silentPump_setGivesUpAfterExactlyThreeSends() {
    testsupport::LogCapture log;
    // The pump hears nothing the application sends.
    SimulatorLink link({QStringLiteral("--drop-in"), QStringLiteral("1")},
                       SimulatorLink::Values::With);
    QString error;
    QVERIFY2(link.start(error, SimulatorLink::Session::None), qPrintable(error));
    auto& prime = link.values().get<PumpPrimeSpeed>();
    SignalCounter retries(&prime, &PumpValueBase::retrySetValue);
    SignalCounter aborts(&prime, &PumpValueBase::setValueAborted);
    SignalCounter successes(&prime, &PumpValueBase::setSuccess);

    QVERIFY(QMetaObject::invokeMethod(&prime, [&prime] { prime.setPrimeSpeed(900); }));
    QTRY_COMPARE_WITH_TIMEOUT(aborts.count, 1, kAnswerTimeoutMs);
    // Nothing more goes out after the abort.
    QTest::qWait(500);
    QCOMPARE(retries.count, 2);
    QCOMPARE(aborts.count, 1);
    QCOMPARE(successes.count, 0);
    QCOMPARE(log.count(QStringLiteral("PrimeSpeed onSetValueTimeout, no response, retrying")), 2);
    QCOMPARE(log.count(QStringLiteral("PrimeSpeed onSetValueTimeout, no response, aborting Set")),
             1);
}

QTEST_GUILESS_MAIN(ValuesEndToEndTest)
#include "tst_ValuesEndToEnd.moc"
