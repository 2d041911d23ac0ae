#include "ValuesLink.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAdcValues.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAnalogCalibration.h"
#include "QtApps/Common/Model/PumpValues/AnalogInputs/PumpAnalogFilterNumSamplesVoltage.h"
#include "QtApps/Common/Model/PumpValues/Logger/PumpLog.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpTorqueIndex.h"
#include "QtApps/Common/Model/PumpValues/Network/PumpNetworkIpConfig.h"
#include "QtApps/Common/Model/PumpValues/PumpFaults.h"
#include "QtApps/Common/Model/PumpValues/PumpHead.h"
#include "QtApps/Common/Model/PumpValues/PumpReset.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpEnableLineSpeed.h"
#include "QtApps/Common/Model/PumpValues/SpeedRanges/PumpVoltageHysteresis.h"

#include <QSignalSpy>
#include <QTest>

using namespace communication;
using namespace communication::objects;
using Operation = ValuesLink::Operation;

namespace {
std::vector<uint8_t> textBytes(const char* text) {
    std::vector<uint8_t> bytes(text, text + std::strlen(text) + 1);
    return bytes;
}
} // namespace

// The values whose behaviour differs from their shape, each on the real proxies.
class ParticularValuesTest : public QObject {
    Q_OBJECT

private slots:
    void torqueIndex_rebootsOnlyAfterItsOwnAcknowledgement();
    void reset_timeoutsCountLikeASet();
    void ipConfig_setCarriesTheResetFlagAndResetReportsItsOutcome();
    void enableLineSpeed_defaultIsRetriedAndReadBack();
    void hysteresis_setTruncatesAndReReadsTheMatchingRange();
    void faults_decodeFourteenFaultsFromBitOne();
    void adcValues_checkAttributesAndRetrySubscribeWithTheirOwnPeriod();
    void calibration_readsBackAcceptedSetsAndReportsRefusals();
    void numSamples_failedSetIsLoggedNotReadBack();
    void pumpHead_isExchangedAsText();
    void pumpLog_readsUntilEmptyEntryAndReadsAgainAfterClear();
    void pumpLog_entryTimeoutNeverClearsTheLog();
};

void ParticularValuesTest::torqueIndex_rebootsOnlyAfterItsOwnAcknowledgement() {
    ValuesLink link;
    PumpTorqueIndex torque(link.container());
    QSignalSpy resets(&torque.pumpReset(), &PumpValueBase::setSuccess);

    torque.setTorqueIndexAndReboot(3);
    link.timeOut();
    QCOMPARE(link.countSent(3, 5, Operation::Set), 2u);
    QCOMPARE(link.countSent(1, 0, Operation::Reset), 0u);

    // A refusal is not an acknowledgement.
    link.refuse(link.lastSent());
    QCOMPARE(link.countSent(1, 0, Operation::Reset), 0u);

    torque.setTorqueIndexAndReboot(4);
    link.acknowledge(link.lastSent());
    QCOMPARE(link.countSent(1, 0, Operation::Reset), 1u);
    QCOMPARE(link.countSent(3, 5, Operation::Get), 0u);
    link.acknowledge(link.lastSent());
    QCOMPARE(resets.count(), 1);
}

void ParticularValuesTest::reset_timeoutsCountLikeASet() {
    ValuesLink link;
    PumpReset reset(link.container());
    QSignalSpy retries(&reset, &PumpValueBase::retrySetValue);
    QSignalSpy aborts(&reset, &PumpValueBase::setValueAborted);

    reset.reset();
    link.timeOut();
    link.timeOut();
    QCOMPARE(retries.count(), 2);
    QCOMPARE(aborts.count(), 0);
    link.timeOut();
    QCOMPARE(aborts.count(), 1);
    QCOMPARE(link.countSent(1, 0, Operation::Reset), 3u);
}

void ParticularValuesTest::ipConfig_setCarriesTheResetFlagAndResetReportsItsOutcome() {
    ValuesLink link;
    PumpNetworkIpConfig ip(link.container());
    QSignalSpy results(&ip, &PumpNetworkIpConfig::ipResetResult);
    QSignalSpy configs(&ip, &PumpNetworkIpConfig::getIpConfigResult);

    ip.set(halyard::protocol::IpConfig{false, 0xC0A8000A, 0xFFFFFF00, 0xC0A80001}, true);
    const auto set = link.lastSent();
    QCOMPARE(set.attribute, uint8_t{4});
    QCOMPARE(set.payloadLength, uint16_t{14});
    QCOMPARE(set.payload[1], uint8_t{0xC0});
    QCOMPARE(set.payload[13], uint8_t{1});
    link.acknowledge(set);
    QCOMPARE(link.countSent(6, 4, Operation::Get), 1u);
    link.acknowledge(link.lastSent(), {1, 10, 0, 0, 1, 255, 0, 0, 0, 10, 0, 0, 254});
    QCOMPARE(configs.count(), 1);
    QCOMPARE(configs.at(0).at(0).value<halyard::protocol::IpConfig>().ipAddress, 0x0A000001u);

    ip.reset();
    QCOMPARE(link.lastSent().operation, Operation::Reset);
    link.acknowledge(link.lastSent());
    QCOMPARE(results.count(), 1);
    QCOMPARE(results.at(0).at(0).toBool(), true);

    // The file-system reset's acknowledgement is not this value's.
    link.update(6, 1, 4, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    QCOMPARE(results.count(), 1);
}

void ParticularValuesTest::enableLineSpeed_defaultIsRetriedAndReadBack() {
    ValuesLink link;
    PumpEnableLineSpeed speed(link.container());
    QSignalSpy results(&speed, &PumpValueBase::setDefaultValueSuccess);

    speed.setDefaultEnableLineSpeed();
    link.timeOut();
    link.timeOut();
    link.timeOut();
    QCOMPARE(link.countSent(5, 9, Operation::SetDef), 3u);
    QCOMPARE(results.count(), 1);
    QCOMPARE(results.at(0).at(0).toBool(), false);

    speed.setDefaultEnableLineSpeed();
    link.acknowledge(link.lastSent());
    QCOMPARE(results.at(1).at(0).toBool(), true);
    QCOMPARE(link.countSent(5, 9, Operation::Get), 1u);
}

void ParticularValuesTest::hysteresis_setTruncatesAndReReadsTheMatchingRange() {
    ValuesLink link;
    PumpVoltageHysteresis hysteresis(link.container());

    hysteresis.set(12.9F);
    const auto set = link.lastSent();
    QCOMPARE(set.attribute, uint8_t{8});
    QCOMPARE(set.payload[0], uint8_t{12});
    link.timeOut();
    QCOMPARE(link.countSent(5, 8, Operation::Set), 2u);
    QCOMPARE(link.lastSent().payload[0], uint8_t{12});

    link.acknowledge(link.lastSent());
    QCOMPARE(link.sent().size(), 3u);
    QCOMPARE(link.countSent(5, 5, Operation::Get), 1u);
}

void ParticularValuesTest::faults_decodeFourteenFaultsFromBitOne() {
    ValuesLink link;
    PumpFaults faults(link.container());
    QSignalSpy changes(&faults, &PumpFaults::faultsChanged);

    // Bit 0 and bits above 14 are not faults; bits 1 and 14 are faults 0 and 13.
    link.update(2, 1, 1, testsupport::bytesOf<uint32_t>(0xFFFF8001u | 0x2u | 0x4000u));
    QCOMPARE(changes.count(), 1);
    const auto list = changes.at(0).at(0).value<QList<PumpFaults::FaultStatus>>();
    QCOMPARE(list.size(), 14);
    for (const auto& status : list) {
        QCOMPARE(status.active, status.index == 0 || status.index == 13);
    }

    faults.set(MotorFaultType::Stall);
    QCOMPARE(link.lastSent().payload[0], uint8_t{5});
    faults.ackFaults();
    QCOMPARE(link.lastSent().operation, Operation::Ack);
}

void ParticularValuesTest::adcValues_checkAttributesAndRetrySubscribeWithTheirOwnPeriod() {
    ValuesLink link;
    PumpAdcValues adc(link.container());
    QSignalSpy errors(&adc, &PumpAdcValues::error);
    QSignalSpy voltages(&adc, &PumpAdcValues::adcVoltageChanged);

    adc.onSubscribe(4, 50, false);
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0).at(0).toString(), QStringLiteral("Invalid subscribe attribute"));
    QCOMPARE(link.sent().size(), 0u);

    adc.onSubscribe(6, 50, false);
    link.timeOut();
    link.timeOut();
    link.timeOut();
    QCOMPARE(link.countSent(4, 6, Operation::Sub), 3u);
    QCOMPARE(link.lastSent().payload[0], uint8_t{50});

    adc.onSubscribe(5, 20, true);
    link.refuse(link.lastSent());
    QCOMPARE(errors.last().at(0).toString(), QStringLiteral("Pump returned (Un)subscribe nak"));

    link.update(4, 1, 6, testsupport::bytesOf(1234.5F));
    QCOMPARE(voltages.count(), 1);
    QCOMPARE(voltages.at(0).at(0).toFloat(), 1234.5F);
}

void ParticularValuesTest::calibration_readsBackAcceptedSetsAndReportsRefusals() {
    ValuesLink link;
    PumpAnalogCalibration calibration(link.container());
    QSignalSpy errors(&calibration, &PumpAnalogCalibration::error);
    QSignalSpy sets(&calibration, &PumpAnalogCalibration::setCalibrationResult);
    QSignalSpy gets(&calibration, &PumpAnalogCalibration::getCalibrationResult);

    calibration.onSetCalibration(3, 1.0F, 0.0F);
    QCOMPARE(errors.last().at(0).toString(), QStringLiteral("Invalid onSetCalibration attribute"));

    calibration.onSetCalibration(1, 2.0F, -0.5F);
    link.timeOut();
    QCOMPARE(link.countSent(4, 1, Operation::Set), 2u);
    link.acknowledge(link.lastSent());
    QCOMPARE(sets.count(), 1);
    QCOMPARE(link.countSent(4, 1, Operation::Get), 1u);
    std::vector<uint8_t> payload = testsupport::bytesOf(2.0F);
    const auto offset = testsupport::bytesOf(-0.5F);
    payload.insert(payload.end(), offset.begin(), offset.end());
    link.acknowledge(link.lastSent(), payload);
    QCOMPARE(gets.count(), 1);
    QCOMPARE(gets.at(0).at(2).toFloat(), -0.5F);

    calibration.onSetCalibration(2, 1.0F, 1.0F);
    link.refuse(link.lastSent());
    QCOMPARE(errors.last().at(0).toString(), QStringLiteral("Pump returned nak for set"));
    QCOMPARE(link.countSent(4, 2, Operation::Get), 0u);
}

void ParticularValuesTest::numSamples_failedSetIsLoggedNotReadBack() {
    ValuesLink link;
    PumpAnalogFilterNumSamplesVoltage samples(link.container());
    QSignalSpy changes(&samples, &PumpAnalogFilterNumSamplesBase::numSamplesChanged);

    samples.setNumSamples(64);
    QCOMPARE(link.lastSent().attribute, uint8_t{3});
    QCOMPARE(link.lastSent().payload[0], uint8_t{64});
    link.refuse(link.lastSent());
    QCOMPARE(link.countSent(4, 3, Operation::Get), 0u);

    samples.setNumSamples(32);
    link.acknowledge(link.lastSent());
    QCOMPARE(link.countSent(4, 3, Operation::Get), 1u);
    link.acknowledge(link.lastSent(), testsupport::bytesOf<uint32_t>(32));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).value<size_t>(), size_t{32});
}

void ParticularValuesTest::pumpHead_isExchangedAsText() {
    ValuesLink link;
    PumpHead head(link.container());
    QSignalSpy heads(&head, &PumpHead::getHeadResponse);
    QSignalSpy acks(&head, &PumpHead::setHeadAck);

    head.set(QStringLiteral("HD-2"));
    QCOMPARE(link.lastSent().payloadLength, uint16_t{5});
    QCOMPARE(link.lastSent().payload[4], uint8_t{0});
    link.acknowledge(link.lastSent());
    QCOMPARE(acks.count(), 1);
    QCOMPARE(link.countSent(1, 3, Operation::Get), 1u);
    link.acknowledge(link.lastSent(), {2});
    QCOMPARE(heads.count(), 1);
    QCOMPARE(heads.at(0).at(0).toString(), PumpHeadCatalogueEntry(2).name);
}

void ParticularValuesTest::pumpLog_readsUntilEmptyEntryAndReadsAgainAfterClear() {
    ValuesLink link;
    PumpLog log(link.container());
    QSignalSpy logs(&log, &PumpLog::logUpdated);

    log.get();
    link.acknowledge(link.lastSent(), textBytes("5025:Pump started"));
    link.acknowledge(link.lastSent(), textBytes("6000:Cover open"));
    link.acknowledge(link.lastSent(), textBytes(""));
    QCOMPARE(logs.count(), 1);
    QCOMPARE(logs.at(0).at(0).toStringList(),
             (QStringList{QStringLiteral("5025:Pump started"), QStringLiteral("6000:Cover open")}));

    log.clearLog();
    link.acknowledge(link.lastSent());
    QCOMPARE(link.lastSent().attribute, uint8_t{1});
    link.acknowledge(link.lastSent(), textBytes(""));
    link.acknowledge(link.lastSent(), textBytes(""));
    QCOMPARE(logs.count(), 2);
    QCOMPARE(logs.at(1).at(0).toStringList(), QStringList{QString()});
}

void ParticularValuesTest::pumpLog_entryTimeoutNeverClearsTheLog() {
    ValuesLink link;
    PumpLog log(link.container());
    QSignalSpy logs(&log, &PumpLog::logUpdated);

    log.get();
    link.acknowledge(link.lastSent(), textBytes("1:a"));
    link.timeOut();
    link.timeOut();
    link.timeOut();
    QCOMPARE(link.countSent(7, 0, Operation::Reset), 0u);
    QCOMPARE(link.countSent(7, 2, Operation::Get), 3u);
    QCOMPARE(logs.count(), 1);
    QCOMPARE(logs.at(0).at(0).toStringList(), QStringList{QStringLiteral("1:a")});
}

QTEST_GUILESS_MAIN(ParticularValuesTest)
#include "tst_ParticularValues.moc"
