#include "Heard.h"
#include "tests/support/SimulatorLink.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogCalibrationObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogFilterObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/AnalogInputObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/DeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/OemDeviceObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/LoggerObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/MotorStepperObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/NetworkObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PrimeObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/PumpObject.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/SpeedCommanderObject.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <initializer_list>

using namespace communication::objects;
using Status = halyard::protocol::message::Status;
using testsupport::SimulatorLink;

namespace {

constexpr int kAnswerMs = 5000;
constexpr uint16_t kStreamPeriodMs = 50;
// Enough updates to call it a stream rather than the single one a subscription starts with.
constexpr int kStreamedUpdates = 3;

// An analog stepper pump whose identity differs from every default, so that each field read
// back can only have come from the command line.
const QStringList kAnalogPump =
    QStringLiteral("--device-type 3 --motor-type 6 --head 5 --serial SN-E2E-0042 --part-number "
                   "PN-E2E-77 --firmware-version 2.3.4 --protocol-version 1.2.3 --seed 20261121")
        .split(QLatin1Char(' ')) +
    QStringList{"--description", "End-to-end test pump"};
const QStringList kNetworkPump{"--variant", "network", "--seed", "20261121"};

// The pump's documented defaults.
constexpr uint8_t kApplicationControlInput = 5;
constexpr uint32_t kMaxSpeedDrpm = 3000;
constexpr uint32_t kDefaultPrimeSpeedDrpm = 2000;
constexpr float kDefaultInputCurrentUa = 12000.0F;
constexpr float kDefaultInputVoltageMv = 5000.0F;
constexpr float kNominalBusVoltageMv = 24000.0F;
constexpr float kShuntOhms = 150.0F;
constexpr float kVoltageDivider = 0.33F;
constexpr float kBusVoltageDivider = 11.0F;
constexpr uint8_t kTorqueTargetCount = 6;
constexpr uint8_t kPumpHeadCount = 27;

// The simulator's settings defaults for the speed commander.
const QSpeedRangeProfile kDefaultCurrentRange{0, 3000, 4000, 20000, 100};
const QSpeedRangeProfile kCurrentRangeLimits{0, 3000, 0, 24000, 2000};
const QSpeedRangeProfile kDefaultVoltageRange{0, 3000, 0, 10000, 50};
const QSpeedRangeProfile kVoltageRangeLimits{0, 3000, 0, 10000, 1000};
const QSpeedRangeProfile kDefaultFrequencyRange{0, 3000, 0, 1000, 5};
const QSpeedRangeProfile kFrequencyRangeLimits{0, 3000, 0, 10000, 100};

constexpr uint32_t ipv4(uint8_t a, uint8_t b, uint8_t c, uint8_t d) {
    return (uint32_t{a} << 24U) | (uint32_t{b} << 16U) | (uint32_t{c} << 8U) | uint32_t{d};
}
const halyard::protocol::IpConfig kDefaultIpConfig{false, ipv4(192, 168, 0, 10),
                                                   ipv4(255, 255, 255, 0), ipv4(192, 168, 0, 1)};

bool near(float actual, float expected, float tolerance) {
    return std::fabs(actual - expected) <= tolerance;
}

QByteArray describe(const QSpeedRangeProfile& p) {
    return QStringLiteral("{%1, %2, %3, %4, %5}")
        .arg(p.MinimumSpeedDrpm)
        .arg(p.MaximumSpeedDrpm)
        .arg(p.MinimumInput)
        .arg(p.MaximumInput)
        .arg(p.Hysteresis)
        .toUtf8();
}

QByteArray describe(const halyard::protocol::IpConfig& c) {
    return QStringLiteral("{dhcp %1, %2, %3, %4}")
        .arg(int(c.dhcpEnabled))
        .arg(c.ipAddress, 8, 16, QLatin1Char('0'))
        .arg(c.subnetMask, 8, 16, QLatin1Char('0'))
        .arg(c.gateway, 8, 16, QLatin1Char('0'))
        .toUtf8();
}

} // namespace

// Sends `request` on the comms thread and waits for one more emission of `heard`.
#define REQUEST_AND_WAIT(heard, ...)                                                               \
    do {                                                                                           \
        const int heardBefore = (heard).count();                                                   \
        QVERIFY2(link.send(__VA_ARGS__), #__VA_ARGS__);                                            \
        QTRY_VERIFY2_WITH_TIMEOUT((heard).count() > heardBefore, #__VA_ARGS__, kAnswerMs);         \
    } while (false)

// A speed-range profile compared field by field, both printed on failure.
#define COMPARE_PROFILE(actual, expected)                                                          \
    QVERIFY2((actual) == (expected),                                                               \
             (describe(actual) + " expected " + describe(expected)).constData())

// Every proxy of the application's link against the pump simulator: gets return what the pump
// was told or holds by default, field by field; sets are acknowledged and read back; published
// attributes stream; and the pump's refusals reach the proxies' refusal signals. The simulator
// encodes its payloads on its own, so a field out of order, too wide or in the wrong byte order
// on either side shows up here.
class ObjectsEndToEndTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { registerProtocolObjectMetaTypes(); }

    void protocolObject_versionPingAndSession();
    void deviceObjects_identityPumpHeadsPortSettingAndResets();
    void pumpObject_getsSetsFaultsAndStreams();
    void primeObject_getsSetsAndStreams();
    void motorObjects_celerationEncoderTorqueAndStreams();
    void analogInputObject_streamsTheMeasurements();
    void analogCalibrationObject_setsAndReadsBack();
    void analogFilterObject_sampleCountsAndFilterData();
    void speedCommanderObject_rangesEnableLineAndStreams();
    void networkObject_moduleIpConfigurationAndStreams();
    void networkObject_refusedByAnAnalogPump();
    void loggerObject_readsAndClearsTheEventLog();
};

void ObjectsEndToEndTest::protocolObject_versionPingAndSession() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& protocol = link.proxy<ProtocolObject>();

    Heard version(protocol, &ProtocolObject::getVersionResponse);
    REQUEST_AND_WAIT(version, [&] { return protocol.RequestVersion(); });
    QCOMPARE(int(version.lastArg().major), 1);
    QCOMPARE(int(version.lastArg().minor), 2);
    QCOMPARE(int(version.lastArg().patch), 3);

    Heard pings(protocol, &ProtocolObject::getKeepAliveResponse);
    REQUEST_AND_WAIT(pings, [&] { return protocol.RequestKeepAlive(); });

    Heard stopped(protocol, &ProtocolObject::setStopSessionResponse);
    REQUEST_AND_WAIT(stopped, [&] { return protocol.RequestStopSession(); });
    Heard started(protocol, &ProtocolObject::setStartSessionResponse);
    REQUEST_AND_WAIT(started, [&] { return protocol.RequestStartSession(1000); });
}

void ObjectsEndToEndTest::deviceObjects_identityPumpHeadsPortSettingAndResets() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& device = link.proxy<DeviceObject>();
    auto& oem = link.proxy<OemDeviceObject>();

    Heard deviceDetails(device, &DeviceObject::receivedDeviceDetails);
    REQUEST_AND_WAIT(deviceDetails, [&] { return device.RequestGetAll(); });
    QCOMPARE(int(deviceDetails.lastArg().deviceType), 3);
    QCOMPARE(deviceDetails.lastArg().AppVersionText(), QStringLiteral("2.3.4"));

    Heard pumpDetails(oem, &OemDeviceObject::receivedPumpDetails);
    REQUEST_AND_WAIT(pumpDetails, [&] { return oem.RequestGetAll(); });
    const PumpDetails& details = pumpDetails.lastArg();
    QCOMPARE(int(details.pumpType), 3);
    QCOMPARE(int(details.motorType), 6);
    QCOMPARE(int(details.headType), 5);
    QCOMPARE(details.PumpSerialText(), QStringLiteral("SN-E2E-0042"));
    QCOMPARE(details.PartNumberText(), QStringLiteral("PN-E2E-77"));
    QCOMPARE(int(details.isNetworkPump), 0);
    QCOMPARE(int(details.isStepperPump), 1);

    Heard description(oem, &OemDeviceObject::receivedProductDescription);
    REQUEST_AND_WAIT(description, [&] { return oem.RequestGetProductDescription(); });
    QVERIFY(description.lastArg<0>());
    QCOMPARE(description.lastArg<1>().ProductDescriptionText(),
             QStringLiteral("End-to-end test pump"));

    Heard head(oem, &OemDeviceObject::receivedPumpHead);
    REQUEST_AND_WAIT(head, [&] { return oem.RequestGetPumpHead(); });
    QCOMPARE(int(head.lastArg()), 5);

    // Every row of the list, in order, is the application's catalogue entry of that index, its
    // rated speed in tenths of rpm, so the name, its NUL and the fields after it were all read
    // in step and the application knows every head the pump lists. The BLDC and stepper flags,
    // by which the head selector filters, leave each kind of pump a part of the list; "None"
    // fits both, and the head fitted to this stepper pump fits a stepper.
    Heard heads(oem, &OemDeviceObject::receivedPumpHeads);
    REQUEST_AND_WAIT(heads, [&] { return oem.RequestGetPumpHeads(); });
    const QList<QPumpHeadParameterTypes> catalogue = heads.lastArg();
    QCOMPARE(catalogue.size(), kPumpHeadCount);
    int bldcHeads = 0;
    int stepperHeads = 0;
    for (int index = 0; index < catalogue.size(); ++index) {
        const QPumpHeadParameterTypes& row = catalogue.at(index);
        const PumpHeadEntry known = PumpHeadCatalogueEntry(static_cast<uint8_t>(index));
        const QByteArray what = QStringLiteral("%1 %2: %3 %4 %5")
                                    .arg(index)
                                    .arg(row.name)
                                    .arg(row.value)
                                    .arg(row.parameterA)
                                    .arg(row.parameterB)
                                    .toUtf8();
        QVERIFY2(row.name == known.name && row.value == 10 * known.maxSpeedRpm, what.constData());
        QVERIFY2(row.parameterA <= 1 && row.parameterB <= 1 &&
                     (row.parameterA == 1 || row.parameterB == 1),
                 what.constData());
        bldcHeads += row.parameterA;
        stepperHeads += row.parameterB;
    }
    QCOMPARE(catalogue.at(0).name, QStringLiteral("None"));
    QCOMPARE(int(catalogue.at(0).parameterA), 1);
    QCOMPARE(int(catalogue.at(0).parameterB), 1);
    QVERIFY2(bldcHeads > 1 && bldcHeads < kPumpHeadCount, qPrintable(QString::number(bldcHeads)));
    QVERIFY2(stepperHeads > 1 && stepperHeads < kPumpHeadCount,
             qPrintable(QString::number(stepperHeads)));
    QCOMPARE(int(catalogue.at(5).parameterB), 1);
    constexpr uint8_t kNewHead = 9;
    Heard setAcks(oem, &OemDeviceObject::receivedSetAck);
    REQUEST_AND_WAIT(setAcks, [&] { return oem.RequestSetPumpHead(catalogue.at(kNewHead).name); });
    QCOMPARE(setAcks.last(),
             std::make_tuple(true, uint8_t{OemDeviceObject::PumpHead}, Status::Success));
    REQUEST_AND_WAIT(head, [&] { return oem.RequestGetPumpHead(); });
    QCOMPARE(int(head.lastArg()), int(kNewHead));

    // A head the pump does not know is refused, and the fitted head stays.
    REQUEST_AND_WAIT(setAcks, [&] { return oem.RequestSetPumpHead(QStringLiteral("Nonesuch")); });
    QCOMPARE(setAcks.last(), std::make_tuple(false, uint8_t{OemDeviceObject::PumpHead},
                                             Status::InvalidMessageData));
    REQUEST_AND_WAIT(head, [&] { return oem.RequestGetPumpHead(); });
    QCOMPARE(int(head.lastArg()), int(kNewHead));

    Heard portSetting(oem, &OemDeviceObject::receivedCliEnableAck);
    REQUEST_AND_WAIT(portSetting, [&] { return oem.RequestGetPlecPortCliEnable(); });
    QCOMPARE(int(portSetting.lastArg()), 0);
    REQUEST_AND_WAIT(setAcks, [&] { return oem.RequestSetPlecPortCliEnable(1); });
    QCOMPARE(setAcks.last(),
             std::make_tuple(true, uint8_t{OemDeviceObject::PlecPortCliEnable}, Status::Success));
    REQUEST_AND_WAIT(portSetting, [&] { return oem.RequestGetPlecPortCliEnable(); });
    QCOMPARE(int(portSetting.lastArg()), 1);

    // The reset of the non-volatile settings restores the port setting and keeps the head.
    Heard framReset(oem, &OemDeviceObject::receivedResetFramAck);
    REQUEST_AND_WAIT(framReset, [&] { return oem.RequestResetFram(); });
    QVERIFY(framReset.lastArg());
    REQUEST_AND_WAIT(portSetting, [&] { return oem.RequestGetPlecPortCliEnable(); });
    QCOMPARE(int(portSetting.lastArg()), 0);
    REQUEST_AND_WAIT(pumpDetails, [&] { return oem.RequestGetAll(); });
    QCOMPARE(int(pumpDetails.lastArg().headType), int(kNewHead));

    // Last: the device reset restarts the pump.
    Heard resetAcks(device, &DeviceObject::receivedResetAck);
    REQUEST_AND_WAIT(resetAcks, [&] { return device.RequestReset(); });
}

void ObjectsEndToEndTest::pumpObject_getsSetsFaultsAndStreams() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& pump = link.proxy<PumpObject>();

    Heard controlInput(pump, &PumpObject::getControlInputResponse);
    Heard speed(pump, &PumpObject::getApplicationSpeedResponse);
    Heard enable(pump, &PumpObject::getApplicationSpeedEnableResponse);
    Heard overrideActive(pump, &PumpObject::getApplicationOverrideActiveResponse);
    Heard maxSpeed(pump, &PumpObject::getMaxApplicationSpeedResponse);
    REQUEST_AND_WAIT(controlInput, [&] { return pump.RequestGetControlInput(); });
    QCOMPARE(int(controlInput.lastArg()), int(kApplicationControlInput));
    REQUEST_AND_WAIT(speed, [&] { return pump.RequestGetApplicationSpeed(); });
    QCOMPARE(speed.lastArg(), 0);
    REQUEST_AND_WAIT(enable, [&] { return pump.RequestGetApplicationSpeedEnable(); });
    QCOMPARE(enable.lastArg(), true);
    REQUEST_AND_WAIT(overrideActive, [&] { return pump.RequestGetApplicationOverrideActive(); });
    QCOMPARE(overrideActive.lastArg(), false);
    REQUEST_AND_WAIT(maxSpeed, [&] { return pump.RequestGetMaxApplicationSpeed(); });
    QCOMPARE(maxSpeed.lastArg(), kMaxSpeedDrpm);

    // The pump refuses a subscription that would never send.
    Heard subscribed(pump, &PumpObject::ackSubscribeResult);
    REQUEST_AND_WAIT(subscribed, [&] { return pump.Subscribe(PumpObject::PowerUsage, 0, false); });
    QCOMPARE(subscribed.last(), std::make_tuple(false, uint8_t{PumpObject::PowerUsage}));

    Heard faults(pump, &PumpObject::updateFaults);
    Heard streamedSpeed(pump, &PumpObject::updateApplicationSpeed);
    Heard streamedOverride(pump, &PumpObject::updateApplicationOverrideActive);
    Heard streamedMaxSpeed(pump, &PumpObject::updateMaxApplicationSpeed);
    Heard cover(pump, &PumpObject::updateCoverStatus);
    Heard direction(pump, &PumpObject::updateDirection);
    Heard power(pump, &PumpObject::updatePowerUsage);
    for (const uint8_t attribute :
         {PumpObject::Faults, PumpObject::ApplicationSpeed, PumpObject::ApplicationOverrideActive,
          PumpObject::MaxApplicationSpeed, PumpObject::CoverStatus, PumpObject::Direction,
          PumpObject::PowerUsage}) {
        REQUEST_AND_WAIT(subscribed,
                         [&] { return pump.Subscribe(attribute, kStreamPeriodMs, false); });
        QCOMPARE(subscribed.last(), std::make_tuple(true, attribute));
    }
    QTRY_VERIFY_WITH_TIMEOUT(
        faults.count() >= kStreamedUpdates && streamedSpeed.count() >= kStreamedUpdates &&
            streamedOverride.count() >= kStreamedUpdates &&
            streamedMaxSpeed.count() >= kStreamedUpdates && cover.count() >= kStreamedUpdates &&
            direction.count() >= kStreamedUpdates && power.count() >= kStreamedUpdates,
        kAnswerMs);
    QCOMPARE(faults.lastArg(), 0U);
    QCOMPARE(streamedSpeed.lastArg(), 0U);
    QCOMPARE(streamedOverride.lastArg(), false);
    QCOMPARE(streamedMaxSpeed.lastArg(), kMaxSpeedDrpm);
    QCOMPARE(cover.lastArg(), false);
    QCOMPARE(direction.lastArg(), halyard::Direction::Forward);
    QVERIFY2(power.lastArg() > 0.0F && power.lastArg() < 1000.0F,
             QByteArray::number(power.lastArg()).constData());

    // Sets are acknowledged and read back; a refused set is acknowledged alike, and the read
    // back shows the pump kept its value.
    Heard setAcks(pump, &PumpObject::ackSetResult);
    REQUEST_AND_WAIT(setAcks, [&] { return pump.RequestSetControlInput(2); });
    QCOMPARE(setAcks.lastArg(), uint8_t{PumpObject::ControlInput});
    REQUEST_AND_WAIT(controlInput, [&] { return pump.RequestGetControlInput(); });
    QCOMPARE(controlInput.lastArg(), halyard::pump::ControlInput::Voltage);
    REQUEST_AND_WAIT(setAcks, [&] { return pump.RequestSetControlInput(7); });
    REQUEST_AND_WAIT(controlInput, [&] { return pump.RequestGetControlInput(); });
    QCOMPARE(controlInput.lastArg(), halyard::pump::ControlInput::Voltage);
    REQUEST_AND_WAIT(setAcks,
                     [&] { return pump.RequestSetControlInput(kApplicationControlInput); });

    constexpr int32_t kReverseDrpm = -1500;
    REQUEST_AND_WAIT(setAcks, [&] {
        return pump.RequestSetApplicationSpeed(static_cast<uint32_t>(kReverseDrpm));
    });
    QCOMPARE(setAcks.lastArg(), uint8_t{PumpObject::ApplicationSpeed});
    REQUEST_AND_WAIT(speed, [&] { return pump.RequestGetApplicationSpeed(); });
    QCOMPARE(speed.lastArg(), kReverseDrpm);
    REQUEST_AND_WAIT(setAcks, [&] { return pump.RequestSetApplicationSpeed(kMaxSpeedDrpm + 1); });
    REQUEST_AND_WAIT(speed, [&] { return pump.RequestGetApplicationSpeed(); });
    QCOMPARE(speed.lastArg(), kReverseDrpm);
    // The pump runs backwards at the application speed, which the streams show.
    QTRY_VERIFY_WITH_TIMEOUT(streamedSpeed.lastArg() == static_cast<uint32_t>(kReverseDrpm) &&
                                 direction.lastArg() == halyard::Direction::Reverse,
                             kAnswerMs);

    REQUEST_AND_WAIT(setAcks, [&] { return pump.RequestSetApplicationSpeedEnable(0); });
    QCOMPARE(setAcks.lastArg(), uint8_t{PumpObject::ApplicationSpeedEnable});
    REQUEST_AND_WAIT(enable, [&] { return pump.RequestGetApplicationSpeedEnable(); });
    QCOMPARE(enable.lastArg(), false);

    REQUEST_AND_WAIT(setAcks, [&] { return pump.RequestSetApplicationOverrideActive(1); });
    QCOMPARE(setAcks.lastArg(), uint8_t{PumpObject::ApplicationOverrideActive});
    REQUEST_AND_WAIT(overrideActive, [&] { return pump.RequestGetApplicationOverrideActive(); });
    QCOMPARE(overrideActive.lastArg(), true);
    QTRY_VERIFY_WITH_TIMEOUT(streamedOverride.lastArg(), kAnswerMs);

    // A test fault comes back as its type and shows in the fault word as bit N; the fault
    // acknowledgement clears it. An unknown fault type is refused.
    Heard faultSet(pump, &PumpObject::ackSetFaultResult);
    REQUEST_AND_WAIT(faultSet, [&] {
        return pump.RequestSetMotorFault(uint8_t(communication::MotorFaultType::Stall));
    });
    QCOMPARE(faultSet.lastArg(), communication::MotorFaultType::Stall);
    QTRY_COMPARE_WITH_TIMEOUT(faults.lastArg(), 1U << 5U, kAnswerMs);
    const int refusedBefore = setAcks.count();
    REQUEST_AND_WAIT(setAcks, [&] { return pump.RequestSetMotorFault(15); });
    QCOMPARE(setAcks.count(), refusedBefore + 1);
    QCOMPARE(setAcks.lastArg(), uint8_t{PumpObject::Faults});
    QCOMPARE(faultSet.count(), 1);
    QVERIFY(link.send([&] { return pump.RequestAckFaults(); }));
    QTRY_COMPARE_WITH_TIMEOUT(faults.lastArg(), 0U, kAnswerMs);
}

void ObjectsEndToEndTest::primeObject_getsSetsAndStreams() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& prime = link.proxy<PrimeObject>();

    Heard inputState(prime, &PrimeObject::getPrimeInputStateResponse);
    Heard speed(prime, &PrimeObject::getPrimeSpeedResponse);
    REQUEST_AND_WAIT(inputState, [&] { return prime.GetPrimeInputState(); });
    QCOMPARE(int(inputState.lastArg()), 0);
    REQUEST_AND_WAIT(speed, [&] { return prime.GetPrimeSpeed(); });
    QCOMPARE(speed.lastArg(), kDefaultPrimeSpeedDrpm);

    // The proxy takes attribute 0, which the pump does not publish and refuses.
    Heard subscribed(prime, &PrimeObject::ackSubscribeResult);
    REQUEST_AND_WAIT(subscribed, [&] { return prime.Subscribe(0, kStreamPeriodMs, false); });
    QCOMPARE(subscribed.last(), std::make_tuple(false, uint8_t{0}));

    Heard streamedState(prime, &PrimeObject::updatePrimeInputState);
    Heard streamedSpeed(prime, &PrimeObject::updatePrimeSpeed);
    for (const uint8_t attribute : {PrimeObject::PrimeInputState, PrimeObject::PrimeSpeed}) {
        REQUEST_AND_WAIT(subscribed,
                         [&] { return prime.Subscribe(attribute, kStreamPeriodMs, false); });
        QCOMPARE(subscribed.last(), std::make_tuple(true, attribute));
    }
    QTRY_VERIFY_WITH_TIMEOUT(streamedState.count() >= kStreamedUpdates &&
                                 streamedSpeed.count() >= kStreamedUpdates,
                             kAnswerMs);
    QCOMPARE(int(streamedState.lastArg()), 0);
    QCOMPARE(streamedSpeed.lastArg(), kDefaultPrimeSpeedDrpm);

    constexpr uint32_t kPrimeSpeed = 1234;
    Heard setAcks(prime, &PrimeObject::ackSetResult);
    REQUEST_AND_WAIT(setAcks, [&] { return prime.SetPrimeSpeed(kPrimeSpeed); });
    QCOMPARE(setAcks.lastArg(), uint8_t{PrimeObject::PrimeSpeed});
    REQUEST_AND_WAIT(speed, [&] { return prime.GetPrimeSpeed(); });
    QCOMPARE(speed.lastArg(), kPrimeSpeed);
    QTRY_COMPARE_WITH_TIMEOUT(streamedSpeed.lastArg(), kPrimeSpeed, kAnswerMs);

    // A speed beyond the limit is refused, which this proxy reports with no signal at all: the
    // get sent after it is answered after it, and by then no acknowledgement came.
    QVERIFY(link.send([&] { return prime.SetPrimeSpeed(kMaxSpeedDrpm + 1); }));
    REQUEST_AND_WAIT(speed, [&] { return prime.GetPrimeSpeed(); });
    QCOMPARE(speed.lastArg(), kPrimeSpeed);
    QCOMPARE(setAcks.count(), 1);
}

void ObjectsEndToEndTest::motorObjects_celerationEncoderTorqueAndStreams() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& motor = link.proxy<MotorObject>();
    auto& stepper = link.proxy<MotorStepperObject>();

    Heard acceleration(motor, &MotorObject::getAccelerationResponse);
    Heard deceleration(motor, &MotorObject::getDecelerationResponse);
    Heard limits(motor, &MotorObject::getCelerationLimitsResponse);
    Heard encoder(motor, &MotorObject::getEncoderDataResponse);
    REQUEST_AND_WAIT(acceleration, [&] { return motor.GetAcceleration(); });
    QCOMPARE(acceleration.lastArg(), 100.0F);
    REQUEST_AND_WAIT(deceleration, [&] { return motor.GetDeceleration(); });
    QCOMPARE(deceleration.lastArg(), 100.0F);
    REQUEST_AND_WAIT(limits, [&] { return motor.GetCelerationLimits(); });
    QCOMPARE(limits.lastArg().minimumRpmPerSec, 1.0F);
    QCOMPARE(limits.lastArg().maximumRpmPerSec, 1000.0F);
    // At rest: no count, no revolution, no status, warning or error bits, and the full field
    // strength in the last byte.
    REQUEST_AND_WAIT(encoder, [&] { return motor.GetEncoderData(); });
    const halyard::encoder::EncoderData atRest = encoder.lastArg();
    QCOMPARE(atRest.count, 0U);
    QCOMPARE(atRest.revolutions, 0U);
    QCOMPARE(int(atRest.status), 0);
    QCOMPARE(int(atRest.warnings), 0);
    QCOMPARE(int(atRest.errors), 0);
    QCOMPARE(int(atRest.fieldStrength), 100);

    Heard setAcks(motor, &MotorObject::ackSetResult);
    REQUEST_AND_WAIT(setAcks, [&] { return motor.SetAcceleration(1000.0F); });
    QCOMPARE(setAcks.lastArg(), uint8_t{MotorObject::Acceleration});
    REQUEST_AND_WAIT(acceleration, [&] { return motor.GetAcceleration(); });
    QCOMPARE(acceleration.lastArg(), 1000.0F);
    REQUEST_AND_WAIT(setAcks, [&] { return motor.SetDeceleration(333.5F); });
    QCOMPARE(setAcks.lastArg(), uint8_t{MotorObject::Deceleration});
    REQUEST_AND_WAIT(deceleration, [&] { return motor.GetDeceleration(); });
    QCOMPARE(deceleration.lastArg(), 333.5F);
    // Below the limit: refused, acknowledged alike, and the pump keeps its value.
    REQUEST_AND_WAIT(setAcks, [&] { return motor.SetAcceleration(0.5F); });
    REQUEST_AND_WAIT(acceleration, [&] { return motor.GetAcceleration(); });
    QCOMPARE(acceleration.lastArg(), 1000.0F);

    Heard subscribed(motor, &MotorObject::ackSubscribeResult);
    Heard actualSpeed(motor, &MotorObject::updateActualSpeed);
    Heard aligned(motor, &MotorObject::updateIsAligned);
    Heard energised(motor, &MotorObject::updateIsEnergized);
    for (const uint8_t attribute :
         {MotorObject::ActualSpeed, MotorObject::Aligned, MotorObject::Energised}) {
        REQUEST_AND_WAIT(subscribed,
                         [&] { return motor.Subscribe(attribute, kStreamPeriodMs, false); });
        QCOMPARE(subscribed.last(), std::make_tuple(true, attribute));
    }
    QTRY_VERIFY_WITH_TIMEOUT(actualSpeed.count() >= kStreamedUpdates &&
                                 aligned.count() >= kStreamedUpdates &&
                                 energised.count() >= kStreamedUpdates,
                             kAnswerMs);
    QCOMPARE(actualSpeed.lastArg(), 0);
    QCOMPARE(energised.lastArg(), false);

    // Run backwards: the signed speed, the energised and aligned stepper all stream, and the
    // encoder counts.
    constexpr int32_t kReverseDrpm = -600;
    auto& pump = link.proxy<PumpObject>();
    Heard pumpAcks(pump, &PumpObject::ackSetResult);
    REQUEST_AND_WAIT(pumpAcks, [&] {
        return pump.RequestSetApplicationSpeed(static_cast<uint32_t>(kReverseDrpm));
    });
    QTRY_VERIFY_WITH_TIMEOUT(actualSpeed.lastArg() == kReverseDrpm && energised.lastArg() &&
                                 aligned.lastArg(),
                             kAnswerMs);
    REQUEST_AND_WAIT(encoder, [&] { return motor.GetEncoderData(); });
    QVERIFY(encoder.lastArg().count != atRest.count);
    QCOMPARE(int(encoder.lastArg().fieldStrength), 100);

    Heard torqueIndex(stepper, &MotorStepperObject::getTorqueIndexResponse);
    Heard torqueTargets(stepper, &MotorStepperObject::getTorqueTargetsResponse);
    REQUEST_AND_WAIT(torqueIndex, [&] { return stepper.GetTorqueIndex(); });
    QCOMPARE(int(torqueIndex.lastArg()), 2);
    REQUEST_AND_WAIT(torqueTargets, [&] { return stepper.GetTorqueTargets(); });
    const QList<float> targets = torqueTargets.lastArg();
    QCOMPARE(targets.size(), qsizetype{kTorqueTargetCount});
    for (qsizetype i = 0; i < targets.size(); ++i) {
        QVERIFY2(targets[i] > 0.0F && targets[i] < 10.0F && (i == 0 || targets[i] > targets[i - 1]),
                 QByteArray::number(targets[i]).constData());
    }
    Heard stepperAcks(stepper, &MotorStepperObject::ackSetResult);
    Heard stepperRefusals(stepper, &MotorStepperObject::nakSetResult);
    REQUEST_AND_WAIT(stepperAcks, [&] { return stepper.SetTorqueIndex(4); });
    QCOMPARE(stepperAcks.lastArg(), uint8_t{MotorStepperObject::TorqueIndex});
    REQUEST_AND_WAIT(torqueIndex, [&] { return stepper.GetTorqueIndex(); });
    QCOMPARE(int(torqueIndex.lastArg()), 4);
    REQUEST_AND_WAIT(stepperRefusals,
                     [&] { return stepper.SetTorqueIndex(uint8_t{kTorqueTargetCount}); });
    QCOMPARE(stepperRefusals.lastArg(), uint8_t{MotorStepperObject::TorqueIndex});
    REQUEST_AND_WAIT(torqueIndex, [&] { return stepper.GetTorqueIndex(); });
    QCOMPARE(int(torqueIndex.lastArg()), 4);
}

void ObjectsEndToEndTest::analogInputObject_streamsTheMeasurements() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& input = link.proxy<AnalogInputObject>();

    // This proxy acknowledges subscriptions through ackResult.
    Heard acks(input, &AnalogInputObject::ackResult);
    REQUEST_AND_WAIT(acks,
                     [&] { return input.Subscribe(AnalogInputObject::InputCurrent, 0, false); });
    QCOMPARE(acks.last(), std::make_tuple(false, uint8_t{AnalogInputObject::InputCurrent}));

    Heard current(input, &AnalogInputObject::updateInputCurrent);
    Heard voltage(input, &AnalogInputObject::updateInputVoltage);
    Heard frequency(input, &AnalogInputObject::updateFrequency);
    Heard busVoltage(input, &AnalogInputObject::updateBusVoltage);
    Heard temperature(input, &AnalogInputObject::updateTemperature);
    Heard adcCurrent(input, &AnalogInputObject::updateAdcCurrent);
    Heard adcVoltage(input, &AnalogInputObject::updateAdcVoltage);
    Heard adcBusVoltage(input, &AnalogInputObject::updateAdcBusVoltage);
    for (uint8_t attribute = AnalogInputObject::InputCurrent;
         attribute <= AnalogInputObject::AdcBusVoltage; ++attribute) {
        REQUEST_AND_WAIT(acks, [&] { return input.Subscribe(attribute, kStreamPeriodMs, false); });
        QCOMPARE(acks.last(), std::make_tuple(true, attribute));
    }
    QTRY_VERIFY_WITH_TIMEOUT(
        current.count() >= kStreamedUpdates && voltage.count() >= kStreamedUpdates &&
            frequency.count() >= kStreamedUpdates && busVoltage.count() >= kStreamedUpdates &&
            temperature.count() >= kStreamedUpdates && adcCurrent.count() >= kStreamedUpdates &&
            adcVoltage.count() >= kStreamedUpdates && adcBusVoltage.count() >= kStreamedUpdates,
        kAnswerMs);

    // The inputs at their defaults, a little noisy; the converter readings through the shunt
    // and the dividers.
    const float currentUa = current.lastArg();
    const float voltageMv = voltage.lastArg();
    const float busMv = busVoltage.lastArg();
    QVERIFY2(near(currentUa, kDefaultInputCurrentUa, 100.0F),
             QByteArray::number(currentUa).constData());
    QVERIFY2(near(voltageMv, kDefaultInputVoltageMv, 50.0F),
             QByteArray::number(voltageMv).constData());
    QVERIFY2(near(frequency.lastArg(), 0.0F, 5.0F),
             QByteArray::number(frequency.lastArg()).constData());
    QVERIFY2(near(busMv, kNominalBusVoltageMv, 1000.0F), QByteArray::number(busMv).constData());
    QVERIFY2(temperature.lastArg() > 15.0F && temperature.lastArg() < 70.0F,
             QByteArray::number(temperature.lastArg()).constData());
    const float shuntMv = kDefaultInputCurrentUa * kShuntOhms / 1000.0F;
    QVERIFY2(near(adcCurrent.lastArg(), shuntMv, 0.02F * shuntMv),
             QByteArray::number(adcCurrent.lastArg()).constData());
    const float dividedMv = kDefaultInputVoltageMv * kVoltageDivider;
    QVERIFY2(near(adcVoltage.lastArg(), dividedMv, 0.02F * dividedMv),
             QByteArray::number(adcVoltage.lastArg()).constData());
    const float dividedBusMv = kNominalBusVoltageMv / kBusVoltageDivider;
    QVERIFY2(near(adcBusVoltage.lastArg(), dividedBusMv, 0.05F * dividedBusMv),
             QByteArray::number(adcBusVoltage.lastArg()).constData());
}

void ObjectsEndToEndTest::analogCalibrationObject_setsAndReadsBack() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& calibration = link.proxy<AnalogCalibrationObject>();

    Heard readings(calibration, &AnalogCalibrationObject::ackGetCalibration);
    for (uint8_t channel = 0; channel <= AnalogCalibrationObject::kLastChannel; ++channel) {
        REQUEST_AND_WAIT(readings, [&] { return calibration.GetCalibration(channel); });
        QCOMPARE(readings.last(), std::make_tuple(channel, 1.0F, 0.0F));
    }

    // The voltage channel: the defaults read above fix the order of slope and offset, so the
    // read-back proves the order they are sent in.
    constexpr uint8_t kVoltageChannel = 1;
    constexpr float kSlope = 1.25F;
    constexpr float kOffset = -3.5F;
    Heard setAcks(calibration, &AnalogCalibrationObject::ackSetCalibration);
    REQUEST_AND_WAIT(setAcks,
                     [&] { return calibration.SetCalibration(kVoltageChannel, kSlope, kOffset); });
    QCOMPARE(setAcks.last(), std::make_tuple(true, kVoltageChannel));
    REQUEST_AND_WAIT(readings, [&] { return calibration.GetCalibration(kVoltageChannel); });
    QCOMPARE(readings.last(), std::make_tuple(kVoltageChannel, kSlope, kOffset));

    // A zero slope is refused and the calibration stays; a fourth channel is never sent.
    REQUEST_AND_WAIT(setAcks,
                     [&] { return calibration.SetCalibration(kVoltageChannel, 0.0F, 1.0F); });
    QCOMPARE(setAcks.last(), std::make_tuple(false, kVoltageChannel));
    REQUEST_AND_WAIT(readings, [&] { return calibration.GetCalibration(kVoltageChannel); });
    QCOMPARE(readings.last(), std::make_tuple(kVoltageChannel, kSlope, kOffset));
}

void ObjectsEndToEndTest::analogFilterObject_sampleCountsAndFilterData() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& filter = link.proxy<AnalogFilterObject>();

    Heard numSamples(filter, &AnalogFilterObject::ackGetNumSamples);
    Heard limits(filter, &AnalogFilterObject::ackGetNumSamplesLimits);
    REQUEST_AND_WAIT(numSamples, [&] { return filter.GetNumSamplesCurrent(); });
    QCOMPARE(numSamples.last(),
             std::make_tuple(uint8_t{AnalogFilterObject::NumSamplesCurrent}, std::size_t{16}));
    REQUEST_AND_WAIT(numSamples, [&] { return filter.GetNumSamplesVoltage(); });
    QCOMPARE(numSamples.last(),
             std::make_tuple(uint8_t{AnalogFilterObject::NumSamplesVoltage}, std::size_t{16}));
    REQUEST_AND_WAIT(limits, [&] { return filter.GetNumSamplesCurrentLimits(); });
    QCOMPARE(limits.last(), std::make_tuple(uint8_t{AnalogFilterObject::NumSamplesCurrentLimits},
                                            std::size_t{1}, std::size_t{256}));
    REQUEST_AND_WAIT(limits, [&] { return filter.GetNumSamplesVoltageLimits(); });
    QCOMPARE(limits.last(), std::make_tuple(uint8_t{AnalogFilterObject::NumSamplesVoltageLimits},
                                            std::size_t{1}, std::size_t{256}));

    constexpr uint32_t kCurrentSamples = 64;
    constexpr uint32_t kVoltageSamples = 4;
    Heard setAcks(filter, &AnalogFilterObject::ackSetNumSamples);
    REQUEST_AND_WAIT(setAcks, [&] { return filter.SetNumSamplesCurrent(kCurrentSamples); });
    QCOMPARE(setAcks.last(), std::make_tuple(uint8_t{AnalogFilterObject::NumSamplesCurrent}, true));
    REQUEST_AND_WAIT(numSamples, [&] { return filter.GetNumSamplesCurrent(); });
    QCOMPARE(std::get<1>(numSamples.last()), std::size_t{kCurrentSamples});
    REQUEST_AND_WAIT(setAcks, [&] { return filter.SetNumSamplesVoltage(kVoltageSamples); });
    QCOMPARE(setAcks.last(), std::make_tuple(uint8_t{AnalogFilterObject::NumSamplesVoltage}, true));
    REQUEST_AND_WAIT(numSamples, [&] { return filter.GetNumSamplesVoltage(); });
    QCOMPARE(std::get<1>(numSamples.last()), std::size_t{kVoltageSamples});
    // Outside the limits, either way: refused, and the count stays.
    for (const uint32_t outside : {0U, 257U}) {
        REQUEST_AND_WAIT(setAcks, [&] { return filter.SetNumSamplesCurrent(outside); });
        QCOMPARE(setAcks.last(),
                 std::make_tuple(uint8_t{AnalogFilterObject::NumSamplesCurrent}, false));
    }
    REQUEST_AND_WAIT(numSamples, [&] { return filter.GetNumSamplesCurrent(); });
    QCOMPARE(std::get<1>(numSamples.last()), std::size_t{kCurrentSamples});

    // The filter data streams with no acknowledgement of the subscription; each sample holds
    // the input around its default, and the output wanders less the more samples it averages.
    Heard filterData(filter, &AnalogFilterObject::updateFilterData);
    for (const uint8_t attribute :
         {AnalogFilterObject::FilterDataCurrent, AnalogFilterObject::FilterDataVoltage}) {
        QVERIFY(link.send([&] { return filter.Subscribe(attribute, kStreamPeriodMs, false); }));
    }
    const auto countOf = [&filterData](uint8_t attribute) {
        return std::count_if(filterData.all().begin(), filterData.all().end(),
                             [attribute](const auto& v) { return std::get<0>(v) == attribute; });
    };
    QTRY_VERIFY_WITH_TIMEOUT(countOf(AnalogFilterObject::FilterDataCurrent) >= kStreamedUpdates &&
                                 countOf(AnalogFilterObject::FilterDataVoltage) >= kStreamedUpdates,
                             kAnswerMs);
    for (const auto& [attribute, data] : filterData.all()) {
        const bool isCurrent = attribute == AnalogFilterObject::FilterDataCurrent;
        const float level = isCurrent ? kDefaultInputCurrentUa : kDefaultInputVoltageMv;
        const float samples = float(isCurrent ? kCurrentSamples : kVoltageSamples);
        const QByteArray what = QStringLiteral("attribute %1: %2 %3 %4 %5")
                                    .arg(int(attribute))
                                    .arg(double(data.input))
                                    .arg(double(data.output))
                                    .arg(double(data.inputVariance))
                                    .arg(double(data.outputVariance))
                                    .toUtf8();
        QVERIFY2(near(data.input, level, 0.05F * level), what.constData());
        QVERIFY2(near(data.output, level, 0.05F * level), what.constData());
        QVERIFY2(data.inputVariance > 0.0F && data.inputVariance < 0.01F * level * level,
                 what.constData());
        QVERIFY2(near(data.outputVariance * samples, data.inputVariance, 0.5F * data.inputVariance),
                 what.constData());
    }
}

void ObjectsEndToEndTest::speedCommanderObject_rangesEnableLineAndStreams() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& commander = link.proxy<SpeedCommanderObject>();

    Heard currentRange(commander, &SpeedCommanderObject::getCurrentSpeedRangeResponse);
    Heard currentLimits(commander, &SpeedCommanderObject::getCurrentSpeedRangeLimitsResponse);
    Heard voltageRange(commander, &SpeedCommanderObject::getVoltageSpeedRangeResponse);
    Heard voltageLimits(commander, &SpeedCommanderObject::getVoltageSpeedRangeLimitsResponse);
    Heard frequencyRange(commander, &SpeedCommanderObject::getFrequencySpeedRangeResponse);
    Heard frequencyLimits(commander, &SpeedCommanderObject::getFrequencySpeedRangeLimitsResponse);
    Heard enableLineSpeed(commander, &SpeedCommanderObject::getEnableLineSpeedResponse);
    Heard enableLineLimits(commander, &SpeedCommanderObject::getEnableLineSpeedLimitsResponse);
    REQUEST_AND_WAIT(currentRange, [&] { return commander.Get(1); });
    COMPARE_PROFILE(currentRange.lastArg(), kDefaultCurrentRange);
    REQUEST_AND_WAIT(currentLimits, [&] { return commander.Get(2); });
    COMPARE_PROFILE(currentLimits.lastArg(), kCurrentRangeLimits);
    REQUEST_AND_WAIT(voltageRange, [&] { return commander.Get(5); });
    COMPARE_PROFILE(voltageRange.lastArg(), kDefaultVoltageRange);
    REQUEST_AND_WAIT(voltageLimits, [&] { return commander.Get(6); });
    COMPARE_PROFILE(voltageLimits.lastArg(), kVoltageRangeLimits);
    REQUEST_AND_WAIT(frequencyRange, [&] { return commander.Get(12); });
    COMPARE_PROFILE(frequencyRange.lastArg(), kDefaultFrequencyRange);
    REQUEST_AND_WAIT(frequencyLimits, [&] { return commander.Get(13); });
    COMPARE_PROFILE(frequencyLimits.lastArg(), kFrequencyRangeLimits);
    REQUEST_AND_WAIT(enableLineSpeed, [&] { return commander.Get(9); });
    QCOMPARE(enableLineSpeed.lastArg(), 1000U);
    REQUEST_AND_WAIT(enableLineLimits, [&] { return commander.Get(10); });
    QCOMPARE(enableLineLimits.last(), std::make_tuple(0U, kMaxSpeedDrpm));

    // The target speeds of the inputs at their defaults: mid-range for current and voltage,
    // none for a frequency of 0; the enable line is not asserted.
    Heard subscribed(commander, &SpeedCommanderObject::ackSubscribeResult);
    REQUEST_AND_WAIT(subscribed, [&] { return commander.Subscribe(1, kStreamPeriodMs, false); });
    QCOMPARE(subscribed.last(), std::make_tuple(false, uint8_t{1}));
    Heard currentTarget(commander, &SpeedCommanderObject::updateCurrentTargetSpeed);
    Heard voltageTarget(commander, &SpeedCommanderObject::updateVoltageTargetSpeed);
    Heard frequencyTarget(commander, &SpeedCommanderObject::updateFrequencyTargetSpeed);
    Heard enableLine(commander, &SpeedCommanderObject::updateEnableLineAsserted);
    for (const uint8_t attribute :
         {SpeedCommanderObject::CurrentTargetSpeed, SpeedCommanderObject::VoltageTargetSpeed,
          SpeedCommanderObject::EnableLineAsserted, SpeedCommanderObject::FrequencyTargetSpeed}) {
        REQUEST_AND_WAIT(subscribed,
                         [&] { return commander.Subscribe(attribute, kStreamPeriodMs, false); });
        QCOMPARE(subscribed.last(), std::make_tuple(true, attribute));
    }
    QTRY_VERIFY_WITH_TIMEOUT(
        currentTarget.count() >= kStreamedUpdates && voltageTarget.count() >= kStreamedUpdates &&
            frequencyTarget.count() >= kStreamedUpdates && enableLine.count() >= kStreamedUpdates,
        kAnswerMs);
    const uint32_t midRange = kMaxSpeedDrpm / 2;
    QVERIFY2(near(float(currentTarget.lastArg()), float(midRange), 50.0F),
             QByteArray::number(currentTarget.lastArg()).constData());
    QVERIFY2(near(float(voltageTarget.lastArg()), float(midRange), 50.0F),
             QByteArray::number(voltageTarget.lastArg()).constData());
    QCOMPARE(frequencyTarget.lastArg(), 0U);
    QCOMPARE(enableLine.lastArg(), false);

    // Sets, each acknowledged and read back, and set-defaults.
    Heard setAcks(commander, &SpeedCommanderObject::setAck);
    Heard defaultAcks(commander, &SpeedCommanderObject::setDefaultAck);
    const QSpeedRangeProfile voltageProfile{100, 2500, 500, 9500, 40};
    REQUEST_AND_WAIT(setAcks, [&] { return commander.WriteProfileToRequest(5, voltageProfile); });
    QCOMPARE(int(setAcks.lastArg()), 5);
    REQUEST_AND_WAIT(voltageRange, [&] { return commander.Get(5); });
    COMPARE_PROFILE(voltageRange.lastArg(), voltageProfile);
    REQUEST_AND_WAIT(setAcks, [&] { return commander.SetEnableLineSpeed(1500); });
    QCOMPARE(int(setAcks.lastArg()), 9);
    REQUEST_AND_WAIT(enableLineSpeed, [&] { return commander.Get(9); });
    QCOMPARE(enableLineSpeed.lastArg(), 1500U);

    constexpr uint8_t kCurrentHysteresis = 4;
    REQUEST_AND_WAIT(setAcks, [&] { return commander.SetHysteresis(kCurrentHysteresis, 150); });
    QCOMPARE(setAcks.lastArg(), kCurrentHysteresis);
    REQUEST_AND_WAIT(currentRange, [&] { return commander.Get(1); });
    QCOMPARE(currentRange.lastArg().Hysteresis, 150U);

    // A range beyond its limits is refused, acknowledged alike, and the range stays.
    const QSpeedRangeProfile tooFast{0, kMaxSpeedDrpm + 1, 0, 1000, 5};
    REQUEST_AND_WAIT(setAcks, [&] { return commander.WriteProfileToRequest(5, tooFast); });
    REQUEST_AND_WAIT(voltageRange, [&] { return commander.Get(5); });
    COMPARE_PROFILE(voltageRange.lastArg(), voltageProfile);

    REQUEST_AND_WAIT(defaultAcks, [&] { return commander.SetDefault(5); });
    QCOMPARE(int(defaultAcks.lastArg()), 5);
    REQUEST_AND_WAIT(voltageRange, [&] { return commander.Get(5); });
    COMPARE_PROFILE(voltageRange.lastArg(), kDefaultVoltageRange);
    REQUEST_AND_WAIT(defaultAcks, [&] { return commander.SetDefault(9); });
    REQUEST_AND_WAIT(enableLineSpeed, [&] { return commander.Get(9); });
    QCOMPARE(enableLineSpeed.lastArg(), 1000U);
}

void ObjectsEndToEndTest::networkObject_moduleIpConfigurationAndStreams() {
    SimulatorLink link(kNetworkPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& network = link.proxy<NetworkObject>();
    auto& device = link.proxy<DeviceObject>();
    auto& oem = link.proxy<OemDeviceObject>();

    // A network pump says so in both device objects.
    Heard deviceDetails(device, &DeviceObject::receivedDeviceDetails);
    REQUEST_AND_WAIT(deviceDetails, [&] { return device.RequestGetAll(); });
    QCOMPARE(int(deviceDetails.lastArg().deviceType), int(DeviceType::StepperNetwork));
    Heard pumpDetails(oem, &OemDeviceObject::receivedPumpDetails);
    REQUEST_AND_WAIT(pumpDetails, [&] { return oem.RequestGetAll(); });
    QCOMPARE(int(pumpDetails.lastArg().isNetworkPump), 1);
    QCOMPARE(int(pumpDetails.lastArg().isStepperPump), 1);

    Heard moduleType(network, &NetworkObject::getAnybusModuleResult);
    Heard moduleVersion(network, &NetworkObject::getAnybusVersionResult);
    Heard mac(network, &NetworkObject::getMacAddressResult);
    Heard ipConfig(network, &NetworkObject::getIpConfigResult);
    REQUEST_AND_WAIT(moduleType, [&] { return network.GetAnybusModuleType(); });
    QCOMPARE(int(moduleType.lastArg()), 1);
    REQUEST_AND_WAIT(moduleVersion, [&] { return network.GetAnybusVersion(); });
    QCOMPARE(moduleVersion.last(), std::make_tuple(uint8_t{2}, uint8_t{1}, uint8_t{7}));
    REQUEST_AND_WAIT(mac, [&] { return network.GetMacAddress(); });
    QCOMPARE(mac.lastArg(), (halyard::protocol::MacAddress{0x02, 0x42, 0x57, 0x4C, 0x00, 0x01}));
    // Locally administered: the second bit of the first byte, which only the wire order keeps.
    QVERIFY((mac.lastArg()[0] & 0x02U) != 0);
    REQUEST_AND_WAIT(ipConfig, [&] { return network.GetIpConfig(); });
    QVERIFY2(ipConfig.lastArg() == kDefaultIpConfig, describe(ipConfig.lastArg()).constData());

    Heard subscribed(network, &NetworkObject::ackSubscribeResult);
    REQUEST_AND_WAIT(subscribed, [&] {
        return network.Subscribe(NetworkObject::AnybusModuleType, kStreamPeriodMs, false);
    });
    QCOMPARE(subscribed.last(), std::make_tuple(false, uint8_t{NetworkObject::AnybusModuleType}));
    Heard streamedIpConfig(network, &NetworkObject::updateIpConfig);
    Heard linkStatus(network, &NetworkObject::updateLinkStatus);
    for (const uint8_t attribute : {NetworkObject::IpConfig, NetworkObject::LinkStatus}) {
        REQUEST_AND_WAIT(subscribed,
                         [&] { return network.Subscribe(attribute, kStreamPeriodMs, false); });
        QCOMPARE(subscribed.last(), std::make_tuple(true, attribute));
    }
    QTRY_VERIFY_WITH_TIMEOUT(streamedIpConfig.count() >= kStreamedUpdates &&
                                 linkStatus.count() >= kStreamedUpdates,
                             kAnswerMs);
    QVERIFY2(streamedIpConfig.lastArg() == kDefaultIpConfig,
             describe(streamedIpConfig.lastArg()).constData());
    QCOMPARE(linkStatus.last(), std::make_tuple(true, true, false, true));

    const halyard::protocol::IpConfig newConfig{true, ipv4(10, 1, 2, 3), ipv4(255, 255, 0, 0),
                                                ipv4(10, 1, 0, 254)};
    Heard setAcks(network, &NetworkObject::ackSet);
    REQUEST_AND_WAIT(setAcks, [&] { return network.SetIpSettings(newConfig, 0); });
    QCOMPARE(int(setAcks.lastArg()), int(NetworkObject::IpConfig));
    REQUEST_AND_WAIT(ipConfig, [&] { return network.GetIpConfig(); });
    QVERIFY2(ipConfig.lastArg() == newConfig, describe(ipConfig.lastArg()).constData());
    QTRY_VERIFY2_WITH_TIMEOUT(streamedIpConfig.lastArg() == newConfig,
                              describe(streamedIpConfig.lastArg()).constData(), kAnswerMs);

    Heard resetAcks(network, &NetworkObject::ackReset);
    REQUEST_AND_WAIT(resetAcks, [&] { return network.ResetIpConfig(); });
    QCOMPARE(int(resetAcks.lastArg()), int(NetworkObject::IpConfig));
    REQUEST_AND_WAIT(ipConfig, [&] { return network.GetIpConfig(); });
    QVERIFY2(ipConfig.lastArg() == kDefaultIpConfig, describe(ipConfig.lastArg()).constData());
    REQUEST_AND_WAIT(resetAcks, [&] { return network.ResetFileSystem(); });
    QCOMPARE(int(resetAcks.lastArg()), int(NetworkObject::FileSystem));
}

void ObjectsEndToEndTest::networkObject_refusedByAnAnalogPump() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& network = link.proxy<NetworkObject>();

    Heard refused(network, &NetworkObject::ackUnhandledType);
    Heard answered(network, &NetworkObject::getAnybusModuleResult);
    REQUEST_AND_WAIT(refused, [&] { return network.GetAnybusModuleType(); });
    QCOMPARE(int(refused.lastArg()), int(NetworkObject::AnybusModuleType));
    QVERIFY(!answered.any());
}

void ObjectsEndToEndTest::loggerObject_readsAndClearsTheEventLog() {
    SimulatorLink link(kAnalogPump);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    auto& logger = link.proxy<LoggerObject>();

    // Entries are "<ms>:<text>", read first and then next until an empty one.
    static const QRegularExpression kEntry(QStringLiteral("^\\d+:.+$"));
    Heard first(logger, &LoggerObject::getFirstLogEntryResponse);
    Heard next(logger, &LoggerObject::getNextLogEntryResponse);
    REQUEST_AND_WAIT(first, [&] { return logger.GetFirstLogEntry(); });
    QVERIFY2(kEntry.match(first.lastArg()).hasMatch(), qPrintable(first.lastArg()));
    constexpr int kMaxEntries = 200;
    int entries = 1;
    do {
        REQUEST_AND_WAIT(next, [&] { return logger.GetNextLogEntry(); });
        if (!next.lastArg().isEmpty()) {
            ++entries;
            QVERIFY2(kEntry.match(next.lastArg()).hasMatch(), qPrintable(next.lastArg()));
        }
    } while (!next.lastArg().isEmpty() && entries <= kMaxEntries);
    QVERIFY2(entries >= 2, "power-on and session start");

    Heard cleared(logger, &LoggerObject::ackClearLog);
    REQUEST_AND_WAIT(cleared, [&] { return logger.ClearLog(); });
    REQUEST_AND_WAIT(first, [&] { return logger.GetFirstLogEntry(); });
    QCOMPARE(first.lastArg(), QString());
}

QTEST_GUILESS_MAIN(ObjectsEndToEndTest)
#include "tst_ObjectsEndToEnd.moc"
