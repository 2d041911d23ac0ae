#include "ControllerRig.h"

#include "QtApps/Common/Controllers/AnalogFilterVariance.h"
#include "QtApps/Common/Controllers/PumpAnalogFilterController.h"
#include "QtApps/Common/Controllers/PumpApplicationSpeedController.h"
#include "QtApps/Common/Controllers/PumpDetailsController.h"
#include "QtApps/Common/Controllers/PumpNetworkController.h"
#include "QtApps/Common/Controllers/PumpSessionController.h"
#include "QtApps/Common/Controllers/PumpSettingsController.h"
#include "QtApps/Common/Controllers/PumpSpeedRangeController.h"
#include "QtApps/Common/Controllers/PumpValuesController.h"
#include "QtApps/Common/Controllers/TimeWindow.h"
#include "QtApps/Common/Core/Communication/PortOpenFailure.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionCurrent.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionFrequency.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/SpeedResolutionVoltage.h"
#include "tests/support/LogCapture.h"

#include <QSignalSpy>

#include <cmath>
#include <iterator>
#include <limits>
#include <tuple>

using namespace communication;
using Operation = ControllerRig::Operation;
using objects::QSpeedRangeProfile;
using testsupport::bytesOf;

namespace {

class StillClock final : public halyard::device::SystemInterface {
public:
    std::uint64_t ElapsedMilliseconds() const override { return now; }
    void Delay(std::uint32_t milliseconds) override { now += milliseconds; }
    void DebugPrint(const char* /*text*/) override {}
    std::uint64_t now = 5000;
};

// Object and attribute numbers of the readings the status panel streams.
constexpr uint8_t kMotor = 3;
constexpr uint8_t kPump = 2;
constexpr uint8_t kPrime = 2;
constexpr uint8_t kAnalogInput = 4;
constexpr uint8_t kSpeedCommander = 5;
constexpr uint8_t kNetwork = 6;

} // namespace

// The controllers on the real values and proxies; what goes out on the link is checked there.
class ControllersTest : public QObject {
    Q_OBJECT

private slots:
    void values_subscribeWaitsForTheDetailsAndSendsEachOnce();
    void values_networkPumpNeverStreamsTheAnalogInputs();
    void details_areAskedForAtEachSessionAndForgottenAfter();
    void session_portProblemReachesTheScreensQueued();
    void applicationSpeed_splitsAndJoinsTheDirection();
    void applicationSpeed_refusesFiguresTheFieldCannotHold();
    void speedRange_limitsNotifyOnChangeAndResolutionsFollowTheProfiles();
    void variance_windowsKeepTheirCapacityAndForgetStaleSamples();
    void variance_speedFollowsTheProfileAndSaysWhenItIsDegenerate();
    void network_dhcpSendsZerosAndABadAddressSendsNothing();
    void settings_acceptOnlyTableTextsAndShowWhatThePumpReports();
};

void ControllersTest::values_subscribeWaitsForTheDetailsAndSendsEachOnce() {
    ControllerRig rig;
    PumpDetailsController details(rig.values, rig.session);
    PumpValuesController controller(rig.values, details);

    controller.subscribe();
    controller.subscribe();
    ControllerRig::settle();
    QCOMPARE(rig.link.sentCount(), 0);

    emit rig.session.pumpConnectionChanged(true);
    rig.identifyPump(false);
    const std::tuple<uint8_t, uint8_t, uint8_t> streamed[] = {
        {kMotor, 1, 3},          {kMotor, 1, 10},      {kPump, 1, 1},        {kPump, 1, 7},
        {kPump, 1, 8},           {kPump, 1, 9},        {kPrime, 2, 1},       {kAnalogInput, 1, 0},
        {kAnalogInput, 1, 1},    {kAnalogInput, 1, 2}, {kAnalogInput, 1, 3}, {kAnalogInput, 1, 4},
        {kSpeedCommander, 1, 11}};
    for (const auto& [object, instance, attribute] : streamed) {
        QCOMPARE(rig.countSent(object, instance, attribute, Operation::Sub), 1);
    }
    QCOMPARE(rig.countSent(Operation::Sub), int(std::size(streamed)));
    rig.link.clearSent();

    // Readings arrive as the pump streams them; the direction's two properties move together.
    QSignalSpy direction(&controller, &PumpValuesController::directionChanged);
    rig.link.update(kPump, 1, 8, {1});
    rig.link.update(kMotor, 1, 3, bytesOf<int32_t>(-1205));
    QTRY_COMPARE(controller.pumpActualSpeedDrpm(), -1205);
    QCOMPARE(direction.count(), 1);
    QCOMPARE(controller.direction(), QStringLiteral("Reverse"));
    QVERIFY(!controller.directionIsForward());

    // A lost session takes the details with it: the next screen's subscribe waits again.
    emit rig.session.pumpConnectionChanged(false);
    ControllerRig::settle();
    rig.link.clearSent();
    controller.subscribe();
    ControllerRig::settle();
    QCOMPARE(rig.link.countSent(kMotor, 3, Operation::Sub), 0u);
}

void ControllersTest::values_networkPumpNeverStreamsTheAnalogInputs() {
    ControllerRig rig;
    PumpDetailsController details(rig.values, rig.session);
    PumpValuesController controller(rig.values, details);
    QSignalSpy network(&controller, &PumpValuesController::isNetworkPumpChanged);

    emit rig.session.pumpConnectionChanged(true);
    rig.identifyPump(true);
    QCOMPARE(network.count(), 1);
    QVERIFY(controller.isNetworkPump());
    controller.subscribe();
    ControllerRig::settle();
    QCOMPARE(rig.link.countSent(kMotor, 3, Operation::Sub), 1u);
    for (uint8_t attribute = 0; attribute < 3; ++attribute) {
        QCOMPARE(rig.link.countSent(kAnalogInput, attribute, Operation::Sub), 0u);
    }
}

void ControllersTest::details_areAskedForAtEachSessionAndForgottenAfter() {
    ControllerRig rig;
    PumpDetailsController details(rig.values, rig.session);
    QSignalSpy changes(&details, &PumpDetailsController::pumpDetailsChanged);

    emit rig.session.protocolVersionChanged({1, 0, 12});
    emit rig.session.pumpConnectionChanged(true);
    rig.identifyPump(false);
    QCOMPARE(details.protocolVersion(), QStringLiteral("V1.0.12"));
    QCOMPARE(details.appVersion(), QStringLiteral("1.16.1"));
    QCOMPARE(details.deviceType(), QStringLiteral("Stepper Analog"));
    QCOMPARE(details.motorType(), QStringLiteral("nema24a"));
    QCOMPARE(details.pumpSerial(), QStringLiteral("SN-42"));
    QCOMPARE(details.partNumber(), QStringLiteral("BWD-100"));
    QVERIFY(details.isStepperPump());
    QCOMPARE(changes.count(), 1);

    emit rig.session.pumpConnectionChanged(false);
    QTRY_COMPARE(changes.count(), 2);
    QVERIFY(details.appVersion().isEmpty());
    QVERIFY(details.pumpSerial().isEmpty());
    QVERIFY(!details.pumpDetailsKnown());
}

// The session reports from the comms thread: the property changes only on the screens' turn.
void ControllersTest::session_portProblemReachesTheScreensQueued() {
    ControllerRig rig;
    PumpSessionController controller(rig.session);
    QSignalSpy changes(&controller, &PumpSessionController::portProblemChanged);
    const QString reason =
        PortOpenFailureText(PortOpenFailure::NoPermission, QStringLiteral("ttyUSB0"), {});

    emit rig.session.portProblemChanged(reason);
    QVERIFY(controller.portProblem().isEmpty());
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(controller.portProblem(), reason);

    emit rig.session.portProblemChanged(QString());
    QTRY_COMPARE(changes.count(), 2);
    QVERIFY(controller.portProblem().isEmpty());
}

void ControllersTest::applicationSpeed_splitsAndJoinsTheDirection() {
    ControllerRig rig;
    PumpApplicationSpeedController controller(rig.values);
    QSignalSpy directions(&controller, &PumpApplicationSpeedController::motorDirectionChanged);
    QSignalSpy speeds(&controller,
                      &PumpApplicationSpeedController::pumpApplicationSpeedDrpmChanged);
    const auto lastSetSpeed = [&rig] {
        const auto* set = rig.lastRequest(kPump, 3, Operation::Set);
        int32_t speed = 0;
        std::memcpy(&speed, set->payload.data(), sizeof speed);
        return speed;
    };

    rig.link.update(kPump, 1, 3, bytesOf<int32_t>(-1500));
    QTRY_COMPARE(controller.pumpApplicationSpeedDrpm(), 1500);
    QCOMPARE(controller.motorDirection(), PumpApplicationSpeedController::Anticlockwise);
    // Stopped, the pump still turns the way it last did.
    rig.link.update(kPump, 1, 3, bytesOf<int32_t>(0));
    QTRY_COMPARE(controller.pumpApplicationSpeedDrpm(), 0);
    QCOMPARE(controller.motorDirection(), PumpApplicationSpeedController::Anticlockwise);
    QCOMPARE(directions.count(), 1);
    rig.link.update(kPump, 1, 3, bytesOf<int32_t>(0));
    ControllerRig::settle();
    QCOMPARE(speeds.count(), 2);

    rig.link.clearSent();
    QVERIFY(controller.setApplicationSpeedDrpm(0));
    ControllerRig::settle();
    QCOMPARE(lastSetSpeed(), 0);
    controller.setMotorDirection(PumpApplicationSpeedController::Anticlockwise);
    ControllerRig::settle();
    QCOMPARE(rig.link.countSent(kPump, 3, Operation::Set), 1u);

    rig.link.update(kPump, 1, 3, bytesOf<int32_t>(-1205));
    QTRY_COMPARE(controller.pumpApplicationSpeedDrpm(), 1205);
    controller.setMotorDirection(PumpApplicationSpeedController::Clockwise);
    ControllerRig::settle();
    QCOMPARE(lastSetSpeed(), 1205);
    QVERIFY(controller.setApplicationSpeedDrpm(900));
    ControllerRig::settle();
    QCOMPARE(lastSetSpeed(), 900);
    // The direction shown is the one asked for until the pump reports otherwise.
    QCOMPARE(controller.motorDirection(), PumpApplicationSpeedController::Clockwise);
}

void ControllersTest::applicationSpeed_refusesFiguresTheFieldCannotHold() {
    ControllerRig rig;
    testsupport::LogCapture log;
    PumpApplicationSpeedController controller(rig.values);
    for (const double figure : {-5.0, 1.5, 65536.0, std::numeric_limits<double>::quiet_NaN()}) {
        QVERIFY(!controller.setApplicationSpeedDrpm(figure));
    }
    ControllerRig::settle();
    QCOMPARE(rig.link.sentCount(), 0);
    QCOMPARE(log.count(QStringLiteral("ApplicationSpeed of")), 4);

    // A speed past what the screens can show is shown at its end, and logged once.
    rig.link.update(kPump, 1, 3, bytesOf<int32_t>(-200000));
    rig.link.update(kPump, 1, 3, bytesOf<int32_t>(-300000));
    QTRY_COMPARE(controller.pumpApplicationSpeedDrpm(), 65535);
    QCOMPARE(log.count(QStringLiteral("reported, shown as 65535")), 1);
}

void ControllersTest::speedRange_limitsNotifyOnChangeAndResolutionsFollowTheProfiles() {
    ControllerRig rig;
    speedResolution::SpeedResolutionCurrent current(&rig.values.get<PumpCurrentSpeedRange>());
    speedResolution::SpeedResolutionVoltage voltage(&rig.values.get<PumpVoltageSpeedRange>());
    speedResolution::SpeedResolutionFrequency frequency(&rig.values.get<PumpFrequencySpeedRange>());
    PumpSpeedRangeController controller(rig.values, current, voltage, frequency);
    QSignalSpy lower(&controller, &PumpSpeedRangeController::enableLineLowerLimitChanged);
    QSignalSpy upper(&controller, &PumpSpeedRangeController::enableLineUpperLimitChanged);

    for (int round = 0; round < 2; ++round) {
        controller.getEnableLineLimits();
        ControllerRig::settle();
        rig.link.acknowledge(*rig.lastRequest(kSpeedCommander, 10, Operation::Get),
                             {0x64, 0, 0, 0, 0xD0, 0x07, 0, 0});
    }
    QTRY_COMPARE(controller.enableLineUpperLimitDrpm(), 2000);
    QCOMPARE(controller.enableLineLowerLimitDrpm(), 100);
    QCOMPARE(lower.count(), 1);
    QCOMPARE(upper.count(), 1);

    // A voltage profile of 0 to 10000 mV over 0 to 15257 drpm needs 2 drpm per step.
    controller.getAllSpeedRanges();
    ControllerRig::settle();
    std::vector<uint8_t> profile;
    for (const uint32_t field : {0U, 15257U, 0U, 10000U, 50U}) {
        const auto bytes = bytesOf(field);
        profile.insert(profile.end(), bytes.begin(), bytes.end());
    }
    rig.link.acknowledge(*rig.lastRequest(kSpeedCommander, 5, Operation::Get), profile);
    QTRY_COMPARE(controller.voltageSpeedResolutionDrpm(), 2U);
    QCOMPARE(controller.voltageProfileDrpm().MaximumSpeedDrpm, 15257U);

    rig.link.clearSent();
    QVERIFY(controller.setVoltageSpeedRangeDrpm(0, 10000, 0, 10000, 50));
    QVERIFY(!controller.setCurrentSpeedRangeDrpm(0, 10000, -1, 20000, 0));
    ControllerRig::settle();
    QCOMPARE(rig.link.countSent(kSpeedCommander, 5, Operation::Set), 1u);
    QCOMPARE(rig.link.countSent(kSpeedCommander, 1, Operation::Set), 0u);
}

void ControllersTest::variance_windowsKeepTheirCapacityAndForgetStaleSamples() {
    TimeWindow window(1000, 30);
    QCOMPARE(window.capacity(), std::size_t{34});
    window.push(9.0F, 100);
    for (uint32_t i = 1; i <= 33; ++i) {
        window.push(1.0F, 100 + i);
    }
    QCOMPARE(window.peak(200), 9.0F);
    window.push(2.0F, 140); // the 35th sample pushes the 9 out
    QCOMPARE(window.size(), std::size_t{34});
    QCOMPARE(window.peak(200), 2.0F);
    QCOMPARE(window.peak(1132), 2.0F); // the 1s at 101 to 132 are a second old
    QCOMPARE(window.peak(1139), 2.0F);
    QCOMPARE(window.peak(1140), 0.0F); // and now the 2 at 140 as well

    // Ages are unsigned: a clock that wrapped past 2^32 still sees a sample from just before.
    TimeWindow wrapping(1000, 30);
    wrapping.push(-3.0F, 0xFFFFFF00U);
    wrapping.push(4.0F, 0xFFFFFF10U);
    QCOMPARE(wrapping.peak(0x100U), 4.0F);
}

void ControllersTest::variance_speedFollowsTheProfileAndSaysWhenItIsDegenerate() {
    QSpeedRangeProfile profile{0, 10000, 4000, 20000, 0}; // 0.625 drpm per µA
    QCOMPARE(AnalogFilterVariance::toSpeed(16.0F, profile), 2.5F);
    QCOMPARE(AnalogFilterVariance::toSpeed(16.0F, QSpeedRangeProfile{}), 0.0F);
    QVERIFY(!std::isfinite(AnalogFilterVariance::toSpeed(16.0F, {0, 10000, 5000, 5000, 0})));

    StillClock clock;
    AnalogFilterVariance variance(30, profile, clock);
    QSignalSpy updates(&variance, &AnalogFilterVariance::varianceUpdate);
    variance.addSample({0.0F, 0.0F, 16.0F, 4.0F});
    variance.update();
    QCOMPARE(variance.inputVarianceDrpm(), 2.5F);
    QCOMPARE(variance.outputVarianceDrpm(), 1.25F);
    clock.now += 1000;
    variance.update();
    QCOMPARE(variance.inputVarianceDrpm(), 0.0F);
    QCOMPARE(updates.count(), 2);
}

void ControllersTest::network_dhcpSendsZerosAndABadAddressSendsNothing() {
    ControllerRig rig;
    PumpNetworkController controller(rig.values);
    QSignalSpy changes(&controller, &PumpNetworkController::ipConfigChanged);

    QVERIFY(controller.setIpConfig(true, QStringLiteral("not an address"), QString(), QString()));
    ControllerRig::settle();
    const auto* set = rig.lastRequest(kNetwork, 4, Operation::Set);
    QVERIFY(set != nullptr);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(set->payload.data()), set->payloadLength),
             QByteArray::fromHex("0100000000000000000000000000"));

    rig.link.clearSent();
    for (const char* bad : {"192.168.0.300", "192.168.1", "::ffff:10.0.0.1", ""}) {
        QVERIFY(!controller.setIpConfig(false, QString::fromLatin1(bad),
                                        QStringLiteral("255.255.255.0"),
                                        QStringLiteral("192.168.0.1")));
    }
    QVERIFY(controller.setIpConfig(false, QStringLiteral("192.168.0.10"),
                                   QStringLiteral("255.255.255.0"), QStringLiteral("192.168.0.1")));
    ControllerRig::settle();
    QCOMPARE(rig.link.countSent(kNetwork, 4, Operation::Set), 1u);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(rig.link.lastSent().payload.data()), 13),
             QByteArray::fromHex("00C0A8000AFFFFFF00C0A80001"));
    // The properties show what the pump reports, not what was asked.
    QCOMPARE(changes.count(), 0);
    rig.link.update(kNetwork, 1, 4, {0, 10, 0, 0, 7, 255, 0, 0, 0, 10, 0, 0, 1});
    QTRY_COMPARE(changes.count(), 1);
    QCOMPARE(controller.ipAddress(), QStringLiteral("10.0.0.7"));
    QCOMPARE(controller.subnetMask(), QStringLiteral("255.0.0.0"));
    QCOMPARE(controller.gatewayAddress(), QStringLiteral("10.0.0.1"));
}

void ControllersTest::settings_acceptOnlyTableTextsAndShowWhatThePumpReports() {
    ControllerRig rig;
    PumpSettingsController controller(rig.values);
    for (const char* refused : {"", "Volt", "voltage", "Bogus"}) {
        QVERIFY(!controller.setControlInput(QString::fromLatin1(refused)));
    }
    QVERIFY(!controller.setPrimeSpeedDrpm(-1));
    ControllerRig::settle();
    QCOMPARE(rig.link.sentCount(), 0);

    QVERIFY(controller.setControlInput(QStringLiteral("Voltage")));
    ControllerRig::settle();
    QCOMPARE(rig.link.lastSent().payload[0], uint8_t{2});
    QVERIFY(controller.pumpControlInput().isEmpty());
    rig.link.acknowledge(rig.link.lastSent());
    ControllerRig::settle();
    rig.link.acknowledge(*rig.lastRequest(kPump, 2, Operation::Get), {2});
    QTRY_COMPARE(controller.pumpControlInput(), QStringLiteral("Voltage"));
}

QTEST_GUILESS_MAIN(ControllersTest)
#include "tst_Controllers.moc"
