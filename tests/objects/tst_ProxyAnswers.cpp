// Every proxy of the link's container on the real message layer, the line replaced by a
// recorder: what the end-to-end tests against the simulator cannot reach cheaply. Requests a
// proxy never sends, refusals, time-outs, answers and updates of the wrong shape, and requests
// the pump has no business making. Well-formed exchanges are proven end to end.
#include "tests/support/LinkHarness.h"
#include "tests/support/LogCapture.h"

#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

using namespace communication::objects;
using communication::ProtocolObjectContainer;
using Status = halyard::protocol::message::Status;
using testsupport::hex;
using testsupport::le;

namespace {

using Request = std::function<bool(ProtocolObjectContainer&)>;
using SpyOn = std::function<std::unique_ptr<QSignalSpy>(ProtocolObjectContainer&)>;

// One request of one proxy of the container.
#define SEND(Proxy, call)                                                                          \
    Request([](ProtocolObjectContainer& proxies) { return proxies.get<Proxy>().call; })

// A signal of a proxy of the container; `Proxy` is needed only where the signal is inherited.
template <typename Proxy = void, typename Owner, typename... Args>
SpyOn on(void (Owner::*signal)(Args...)) {
    using Target = std::conditional_t<std::is_void_v<Proxy>, Owner, Proxy>;
    return [signal](ProtocolObjectContainer& proxies) {
        return std::make_unique<QSignalSpy>(&proxies.get<Target>(), signal);
    };
}

QVariant u8(int value) {
    return QVariant::fromValue(static_cast<uint8_t>(value));
}

// What the pump does with the request: answers it, refuses it or lets it time out.
struct Answer {
    enum Kind { Ack, Refuse, TimeOut } kind = Ack;
    QByteArray payload;
    Status status = Status::Failed;
};
Answer ack(const QByteArray& payload = {}) {
    return {Answer::Ack, payload};
}
Answer refused(Status status = Status::Failed) {
    return {Answer::Refuse, {}, status};
}
const Answer kTimeOut{Answer::TimeOut, {}, Status::Failed};

// The signal a row watches, raised once with arguments that begin with `args` or never raised,
// and a text the log must hold.
struct Outcome {
    SpyOn signal;
    std::optional<QVariantList> args;
    QString log;
};
Outcome raised(SpyOn signal, const QVariantList& args = {}, const QString& log = {}) {
    return {std::move(signal), args, log};
}
Outcome silent(SpyOn signal, const QString& log = {}) {
    return {std::move(signal), std::nullopt, log};
}

struct Exchange {
    Request request;
    Answer answer;
    Outcome outcome;
    std::optional<Status> received; // the receive path's result, where it matters
};

struct PumpRequest {
    std::array<uint8_t, 4> header; // object, instance, attribute, operation
    QByteArray payload;
    QByteArray reply; // empty: the proxy does not answer
    Outcome outcome;
};

void addExchange(const char* name, Request request, Answer answer, Outcome outcome,
                 std::optional<Status> received = std::nullopt) {
    QTest::newRow(name) << Exchange{std::move(request), std::move(answer), std::move(outcome),
                                    received};
}

void addPumpRequest(const char* name, std::array<uint8_t, 4> header, const QByteArray& payload,
                    const char* reply, Outcome outcome = {}) {
    QTest::newRow(name) << PumpRequest{header, payload, hex(reply), std::move(outcome)};
}

constexpr uint8_t kUpdate = 8;
constexpr uint8_t kGet = 0;
constexpr uint8_t kSet = 2;
constexpr const char* kAnswered = "40 01 00";
constexpr const char* kInvalidAttribute = "40 03 04";
constexpr const char* kInvalidOperation = "40 03 05";
constexpr const char* kInvalidData = "40 03 08";
const QString kReadFailure = QStringLiteral("Protocol message data read failure");

const QSpeedRangeProfile kProfile{100, 3000, 4000, 20000, 50};
const QByteArray kProfileBytes = hex("64000000 B80B0000 A00F0000 204E0000 32000000");
// 192.168.0.10 / 255.255.255.0 / 192.168.0.1 with DHCP off, most significant byte first.
const QByteArray kIpConfigBytes = hex("00 C0A8000A FFFFFF00 C0A80001");
const halyard::protocol::IpConfig kIpConfig{false, 0xC0A8000A, 0xFFFFFF00, 0xC0A80001};

} // namespace

Q_DECLARE_METATYPE(Request)
Q_DECLARE_METATYPE(Exchange)
Q_DECLARE_METATYPE(PumpRequest)

class ProxyAnswersTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { registerProtocolObjectMetaTypes(); }

    void requestsOutsideTheProxysRange_areNotSent_data();
    void requestsOutsideTheProxysRange_areNotSent();
    void answers_data();
    void answers();
    void pumpRequests_data();
    void pumpRequests();

private:
    static void expect(const testsupport::LogCapture& log, QSignalSpy* spy, const Outcome& outcome);
};

void ProxyAnswersTest::expect(const testsupport::LogCapture& log, QSignalSpy* spy,
                              const Outcome& outcome) {
    if (spy != nullptr) {
        QCOMPARE(spy->count(), outcome.args ? 1 : 0);
        if (outcome.args) {
            QCOMPARE(spy->first().mid(0, outcome.args->size()), *outcome.args);
        }
    }
    if (!outcome.log.isEmpty()) {
        QVERIFY2(log.contains(outcome.log), qPrintable(log.lines().join('\n')));
    }
}

void ProxyAnswersTest::requestsOutsideTheProxysRange_areNotSent_data() {
    QTest::addColumn<Request>("request");
    QTest::addColumn<QString>("log");
    const auto row = [](const char* name, Request request, const QString& log = {}) {
        QTest::newRow(name) << std::move(request) << log;
    };
    row("analog input subscribe 8", SEND(AnalogInputObject, Subscribe(8, 250, false)));
    row("analog input unsubscribe 8", SEND(AnalogInputObject, Unsubscribe(8)));
    row("calibration channel 3", SEND(AnalogCalibrationObject, SetCalibration(3, 1.0F, 0.0F)),
        QStringLiteral("SetCalibration attr:3 slope:1 offset:0"));
    row("filter subscribe 4", SEND(AnalogFilterObject, Subscribe(4, 100, true)));
    row("filter unsubscribe 7", SEND(AnalogFilterObject, Unsubscribe(7)));
    row("motor subscribe 4", SEND(MotorObject, Subscribe(4, 100, false)));
    row("motor unsubscribe 9", SEND(MotorObject, Unsubscribe(9)));
    row("prime subscribe 4", SEND(PrimeObject, Subscribe(4, 1000, false)));
    row("prime unsubscribe 4", SEND(PrimeObject, Unsubscribe(4)));
    row("pump subscribe 0", SEND(PumpObject, Subscribe(0, 1000, true)));
    row("pump subscribe 2", SEND(PumpObject, Subscribe(2, 1000, true)));
    row("pump subscribe 4", SEND(PumpObject, Subscribe(4, 1000, true)));
    row("pump subscribe 10", SEND(PumpObject, Subscribe(10, 1000, true)));
    row("pump unsubscribe 2", SEND(PumpObject, Unsubscribe(2)));
    row("commander set-default 2", SEND(SpeedCommanderObject, SetDefault(2)));
    row("commander profile 9", SEND(SpeedCommanderObject, WriteProfileToRequest(9, kProfile)));
    row("commander subscribe 16", SEND(SpeedCommanderObject, Subscribe(16, 1000, true)));
    row("commander unsubscribe 16", SEND(SpeedCommanderObject, Unsubscribe(16)));
    row("firmware data beyond a payload",
        SEND(
            FirmwareUpdateObject,
            SendFirmwareData(2, 0, QByteArray(int(FirmwareUpdateObject::kMaxDataLength) + 1, 'x'))),
        QStringLiteral("SendFirmwareData - Protocol message data write failure"));
}

void ProxyAnswersTest::requestsOutsideTheProxysRange_areNotSent() {
    QFETCH(Request, request);
    QFETCH(QString, log);
    testsupport::LogCapture capture;
    testsupport::LinkHarness link;
    ProtocolObjectContainer proxies(link.protocol());
    QVERIFY(!request(proxies));
    QCOMPARE(link.sentCount(), 0);
    expect(capture, nullptr, {{}, std::nullopt, log});
}

void ProxyAnswersTest::answers_data() {
    QTest::addColumn<Exchange>("exchange");

    addExchange("ping refused: the pump is there", SEND(ProtocolObject, RequestKeepAlive()),
                refused(Status::InvalidAttribute),
                raised(on(&ProtocolObject::getKeepAliveResponse)));
    addExchange("session start refused: only its time-out tells",
                SEND(ProtocolObject, RequestStartSession(1000)), refused(),
                silent(on(&ProtocolObject::setStartSessionResponse)));
    addExchange("session start unanswered", SEND(ProtocolObject, RequestStartSession(1000)),
                kTimeOut, raised(on(&ProtocolObject::sessionStartTimeout)));
    addExchange("ping unanswered", SEND(ProtocolObject, RequestKeepAlive()), kTimeOut,
                raised(on(&ProtocolObject::keepAliveTimeout)));
    addExchange("version unanswered: no ping time-out", SEND(ProtocolObject, RequestVersion()),
                kTimeOut, silent(on(&ProtocolObject::keepAliveTimeout)));
    addExchange("version of two bytes", SEND(ProtocolObject, RequestVersion()), ack(hex("0207")),
                silent(on(&ProtocolObject::getVersionResponse)));

    addExchange("device details of three bytes", SEND(DeviceObject, RequestGetAll()),
                ack(hex("09 01 10")),
                silent(on(&DeviceObject::receivedDeviceDetails),
                       QStringLiteral("HandleResponseAll - ") + kReadFailure),
                Status::Failed);
    addExchange("device reset refused: not consumed", SEND(DeviceObject, RequestReset()), refused(),
                silent(on(&DeviceObject::receivedResetAck)), Status::Failed);
    addExchange("device details unanswered", SEND(DeviceObject, RequestGetAll()), kTimeOut,
                raised(on(&DeviceObject::getTimedOut), {u8(0)}));
    addExchange("device reset unanswered", SEND(DeviceObject, RequestReset()), kTimeOut,
                raised(on(&DeviceObject::resetTimedOut)));

    addExchange(
        "pump details without the part number", SEND(OemDeviceObject, RequestGetAll()),
        ack(hex("04 02 05") + "SN123"),
        silent(on(&OemDeviceObject::receivedPumpDetails), QStringLiteral("HandleGetAllResponse")));
    addExchange(
        "pump details with a serial of 33 characters", SEND(OemDeviceObject, RequestGetAll()),
        ack(hex("04 02 05") + QByteArray(33, 'S') + '\0' + "PN" + '\0' + hex("01 00")),
        silent(on(&OemDeviceObject::receivedPumpDetails), QStringLiteral("HandleGetAllResponse")));
    const QByteArray headRow = QByteArray("BW-S25") + '\0' + le<uint32_t>(500) + hex("04 02");
    addExchange("pump heads with a partial row", SEND(OemDeviceObject, RequestGetPumpHeads()),
                ack(headRow + headRow.left(9)),
                silent(on(&OemDeviceObject::receivedPumpHeads),
                       QStringLiteral("HandleGetPumpHeadsResponse")));
    addExchange("pump heads empty", SEND(OemDeviceObject, RequestGetPumpHeads()), ack(),
                silent(on(&OemDeviceObject::receivedPumpHeads),
                       QStringLiteral("HandleGetPumpHeadsResponse")));
    addExchange("description of 64 characters",
                SEND(OemDeviceObject, RequestGetProductDescription()),
                ack(QByteArray(64, 'd') + '\0'),
                raised(on(&OemDeviceObject::receivedProductDescription), {true}));
    addExchange("description of 65 characters",
                SEND(OemDeviceObject, RequestGetProductDescription()),
                ack(QByteArray(65, 'd') + '\0'),
                raised(on(&OemDeviceObject::receivedProductDescription), {false}));
    addExchange("settings reset refused", SEND(OemDeviceObject, RequestResetFram()), refused(),
                raised(on(&OemDeviceObject::receivedResetFramAck), {false}));
    addExchange("pump head set unanswered",
                SEND(OemDeviceObject, RequestSetPumpHead(QStringLiteral("X"))), kTimeOut,
                raised(on(&OemDeviceObject::setTimedOut), {u8(3)}));

    addExchange("analog unsubscribe refused", SEND(AnalogInputObject, Unsubscribe(3)),
                refused(Status::NoSubscription),
                raised(on(&AnalogInputObject::ackResult), {false, u8(3)}));
    addExchange("analog subscription acknowledged through ackResult only",
                SEND(AnalogInputObject, Subscribe(2, 100, true)), ack(),
                silent(on<AnalogInputObject>(&AnalogInputObject::ackSubscribeResult)));
    addExchange("analog unsubscribe unanswered", SEND(AnalogInputObject, Unsubscribe(4)), kTimeOut,
                raised(on<AnalogInputObject>(&AnalogInputObject::unsubscribeTimeout), {u8(4)}));

    // Beside invalidData, an unreadable answer counts as none, so the value asks again.
    addExchange("calibration of one float", SEND(AnalogCalibrationObject, GetCalibration(1)),
                ack(le<float>(2.0F)),
                raised(on(&AnalogCalibrationObject::getTimeout), {u8(1)},
                       QStringLiteral("HandleGetAck - ") + kReadFailure));
    addExchange("calibration get refused", SEND(AnalogCalibrationObject, GetCalibration(0)),
                refused(), raised(on(&AnalogCalibrationObject::nakGet), {u8(0)}));
    addExchange("calibration get past the last channel refused",
                SEND(AnalogCalibrationObject, GetCalibration(5)), refused(),
                raised(on(&AnalogCalibrationObject::invalidAttribute), {u8(5)}));
    addExchange("calibration get unanswered", SEND(AnalogCalibrationObject, GetCalibration(2)),
                kTimeOut,
                raised(on(&AnalogCalibrationObject::getTimeout), {u8(2)},
                       QStringLiteral("GetCalibration attr:2")));
    addExchange("calibration set unanswered",
                SEND(AnalogCalibrationObject, SetCalibration(2, 1.5F, -0.25F)), kTimeOut,
                raised(on(&AnalogCalibrationObject::setTimeout), {u8(2)},
                       QStringLiteral("SetCalibration attr:2 slope:1.5 offset:-0.25")));

    addExchange("sample-count limits of one number",
                SEND(AnalogFilterObject, GetNumSamplesVoltageLimits()), ack(le<uint32_t>(1)),
                raised(on(&AnalogFilterObject::invalidData), {u8(4)},
                       QStringLiteral("HandleGetNumSamplesLimits")));
    addExchange("sample count get refused", SEND(AnalogFilterObject, GetNumSamplesCurrent()),
                refused(), raised(on(&AnalogFilterObject::nakGet), {u8(1)}));
    addExchange("filter subscription answered, not reported",
                SEND(AnalogFilterObject, Subscribe(6, 100, false)), ack(),
                silent(on<AnalogFilterObject>(&AnalogFilterObject::ackSubscribeResult)),
                Status::Success);
    addExchange("filter unsubscribe refused, not reported",
                SEND(AnalogFilterObject, Unsubscribe(6)), refused(),
                silent(on<AnalogFilterObject>(&AnalogFilterObject::ackSubscribeResult)));
    addExchange("sample count get unanswered", SEND(AnalogFilterObject, GetNumSamplesCurrent()),
                kTimeOut, raised(on(&AnalogFilterObject::getTimeout), {u8(1)}));
    addExchange("filter subscription unanswered",
                SEND(AnalogFilterObject, Subscribe(5, 100, false)), kTimeOut,
                raised(on<AnalogFilterObject>(&AnalogFilterObject::subscribeTimeout), {u8(5)}));

    const QString encoderFailure =
        QStringLiteral("GetEncoderDataResponseHandler - ") + kReadFailure;
    addExchange("encoder data of 13 bytes", SEND(MotorObject, GetEncoderData()),
                ack(hex("01020304 0A000000 11 22 33 44 55")),
                silent(on(&MotorObject::getEncoderDataResponse), encoderFailure));
    addExchange("encoder data of 11 bytes", SEND(MotorObject, GetEncoderData()),
                ack(hex("01020304 0A000000 11 22 33")),
                silent(on(&MotorObject::getEncoderDataResponse), encoderFailure));
    addExchange("celeration limits of one float", SEND(MotorObject, GetCelerationLimits()),
                ack(le<float>(1.0F)), silent(on(&MotorObject::getCelerationLimitsResponse)));
    addExchange("acceleration get refused", SEND(MotorObject, GetAcceleration()), refused(),
                raised(on(&MotorObject::ackGetResult), {u8(5)}));
    addExchange("motor subscription unanswered", SEND(MotorObject, Subscribe(10, 100, true)),
                kTimeOut, raised(on<MotorObject>(&MotorObject::subscribeTimeout), {u8(10)}));

    addExchange("torque targets: every whole float of ten bytes",
                SEND(MotorStepperObject, GetTorqueTargets()),
                ack(le<float>(0.5F) + le<float>(1.25F) + hex("FFFF")),
                raised(on(&MotorStepperObject::getTorqueTargetsResponse),
                       {QVariant::fromValue(QList<float>{0.5F, 1.25F})}));
    addExchange("torque targets empty", SEND(MotorStepperObject, GetTorqueTargets()), ack(),
                silent(on(&MotorStepperObject::getTorqueTargetsResponse),
                       QStringLiteral("GetTorqueTargetsResponseHandler")));
    addExchange("torque targets refused", SEND(MotorStepperObject, GetTorqueTargets()), refused(),
                raised(on(&MotorStepperObject::ackGetResult), {u8(6)}));
    addExchange("torque index get unanswered", SEND(MotorStepperObject, GetTorqueIndex()), kTimeOut,
                raised(on(&MotorStepperObject::getTimeout), {u8(5)}));
    addExchange("torque index set unanswered", SEND(MotorStepperObject, SetTorqueIndex(1)),
                kTimeOut, raised(on(&MotorStepperObject::setTimeout), {u8(5)}));

    addExchange(
        "MAC address of five bytes", SEND(NetworkObject, GetMacAddress()),
        ack(hex("00 30 11 AA BB")),
        silent(on(&NetworkObject::getMacAddressResult), QStringLiteral("GetMacAddressHandler")));
    addExchange("IP configuration of twelve bytes", SEND(NetworkObject, GetIpConfig()),
                ack(kIpConfigBytes.left(12)),
                silent(on(&NetworkObject::getIpConfigResult),
                       QStringLiteral("ReadIpConfig - ") + kReadFailure));
    addExchange("network subscription unanswered", SEND(NetworkObject, Subscribe(5, 1000, true)),
                kTimeOut, raised(on<NetworkObject>(&NetworkObject::subscribeTimeout), {u8(5)}));
    addExchange("network subscription unanswered: refused as well",
                SEND(NetworkObject, Subscribe(5, 1000, true)), kTimeOut,
                raised(on<NetworkObject>(&NetworkObject::ackSubscribeResult), {false, u8(5)}));
    addExchange("IP configuration get unanswered", SEND(NetworkObject, GetIpConfig()), kTimeOut,
                raised(on(&NetworkObject::getTimedOut), {u8(4)}));
    addExchange("IP configuration get unanswered: unhandled as well",
                SEND(NetworkObject, GetIpConfig()), kTimeOut,
                raised(on(&NetworkObject::ackUnhandledType), {u8(4)}));
    addExchange("IP settings refused", SEND(NetworkObject, SetIpSettings(kIpConfig, 0)), refused(),
                raised(on(&NetworkObject::ackUnhandledType), {u8(4)}));

    addExchange(
        "log entry of 139 characters", SEND(LoggerObject, GetFirstLogEntry()),
        ack(QByteArray(139, 'e') + '\0'),
        raised(on(&LoggerObject::getFirstLogEntryResponse), {QString(139, QLatin1Char('e'))}));
    addExchange("log entry of 140 characters", SEND(LoggerObject, GetNextLogEntry()),
                ack(QByteArray(140, 'e') + '\0'),
                silent(on(&LoggerObject::getNextLogEntryResponse),
                       QStringLiteral("GetLogEntryResponseHandler")));
    addExchange("log entry unanswered", SEND(LoggerObject, GetFirstLogEntry()), kTimeOut,
                raised(on(&LoggerObject::getTimeout), {u8(1)}));
    addExchange("log entry unanswered: a clear time-out as well",
                SEND(LoggerObject, GetFirstLogEntry()), kTimeOut,
                raised(on(&LoggerObject::clearLogTimeout)));
    addExchange("log clear unanswered", SEND(LoggerObject, ClearLog()), kTimeOut,
                raised(on(&LoggerObject::clearLogTimeout)));
    addExchange("log clear unanswered: no entry time-out", SEND(LoggerObject, ClearLog()), kTimeOut,
                silent(on(&LoggerObject::getTimeout)));
    addExchange("log clear refused: acknowledged all the same", SEND(LoggerObject, ClearLog()),
                refused(), raised(on(&LoggerObject::ackClearLog)));
    addExchange("next log entry refused", SEND(LoggerObject, GetNextLogEntry()), refused(),
                raised(on(&LoggerObject::getNak), {u8(2)}));

    addExchange("prime speed of two bytes", SEND(PrimeObject, GetPrimeSpeed()), ack(hex("E803")),
                silent(on(&PrimeObject::getPrimeSpeedResponse),
                       QStringLiteral("GetPrimeSpeedResponseHandler - ") + kReadFailure));
    addExchange("prime speed get refused", SEND(PrimeObject, GetPrimeSpeed()),
                refused(Status::InvalidAttribute), raised(on(&PrimeObject::ackGetResult), {u8(3)}));
    addExchange("prime input get unanswered", SEND(PrimeObject, GetPrimeInputState()), kTimeOut,
                raised(on(&PrimeObject::getTimeout), {u8(1)}));
    addExchange("prime speed set unanswered", SEND(PrimeObject, SetPrimeSpeed(1)), kTimeOut,
                raised(on(&PrimeObject::setTimeout), {u8(3)}));
    addExchange("prime unsubscribe unanswered", SEND(PrimeObject, Unsubscribe(1)), kTimeOut,
                raised(on<PrimeObject>(&PrimeObject::unsubscribeTimeout), {u8(1)}));

    addExchange("control input 7", SEND(PumpObject, RequestGetControlInput()), ack(hex("07")),
                silent(on(&PumpObject::getControlInputResponse),
                       QStringLiteral("GetControlInputResponseHandler - ") + kReadFailure));
    addExchange("maximum speed of two bytes", SEND(PumpObject, RequestGetMaxApplicationSpeed()),
                ack(hex("7017")),
                silent(on(&PumpObject::getMaxApplicationSpeedResponse),
                       QStringLiteral("GetMaxApplicationSpeedResponseHandler")));
    addExchange(
        "fault set answered without its type", SEND(PumpObject, RequestSetMotorFault(5)), ack(),
        silent(on(&PumpObject::ackSetFaultResult), QStringLiteral("SetFaultResponseHandler")));
    addExchange("control input get refused", SEND(PumpObject, RequestGetControlInput()), refused(),
                raised(on(&PumpObject::ackGetResult), {u8(2)}));
    addExchange("fault acknowledgement answered: not consumed",
                SEND(PumpObject, RequestAckFaults()), ack(), silent(on(&PumpObject::ackSetResult)),
                Status::Failed);
    addExchange("application speed get unanswered", SEND(PumpObject, RequestGetApplicationSpeed()),
                kTimeOut, raised(on(&PumpObject::getTimeout), {u8(3)}));
    addExchange("control input set unanswered", SEND(PumpObject, RequestSetControlInput(1)),
                kTimeOut, raised(on(&PumpObject::setTimeout), {u8(2)}));
    addExchange("pump unsubscribe unanswered", SEND(PumpObject, Unsubscribe(7)), kTimeOut,
                raised(on<PumpObject>(&PumpObject::unsubscribeTimeout), {u8(7)}));

    addExchange("frequency range of four numbers", SEND(SpeedCommanderObject, Get(12)),
                ack(kProfileBytes.left(16)),
                silent(on(&SpeedCommanderObject::getFrequencySpeedRangeResponse),
                       QStringLiteral("ReadProfileFromMessage")));
    addExchange("enable-line limits of one number", SEND(SpeedCommanderObject, Get(10)),
                ack(le<uint32_t>(10)),
                silent(on(&SpeedCommanderObject::getEnableLineSpeedLimitsResponse),
                       QStringLiteral("GetHandler - ") + kReadFailure));
    addExchange("set-default refused", SEND(SpeedCommanderObject, SetDefault(1)), refused(),
                raised(on(&SpeedCommanderObject::setDefaultAck), {u8(1)}));
    addExchange("frequency limits get refused", SEND(SpeedCommanderObject, Get(13)), refused(),
                raised(on(&SpeedCommanderObject::getAck), {u8(13)}));
    addExchange("set-default unanswered", SEND(SpeedCommanderObject, SetDefault(9)), kTimeOut,
                raised(on(&SpeedCommanderObject::setDefaultTimeout), {u8(9)}));
}

void ProxyAnswersTest::answers() {
    QFETCH(Exchange, exchange);
    testsupport::LogCapture log;
    testsupport::LinkHarness link;
    ProtocolObjectContainer proxies(link.protocol());
    const std::unique_ptr<QSignalSpy> spy = exchange.outcome.signal(proxies);
    QVERIFY(exchange.request(proxies));
    std::optional<Status> received;
    switch (exchange.answer.kind) {
    case Answer::Ack:
        received = link.ack(exchange.answer.payload);
        break;
    case Answer::Refuse:
        received = link.refuse(exchange.answer.status);
        break;
    case Answer::TimeOut:
        link.timeOut();
        break;
    }
    if (exchange.received) {
        QCOMPARE(received, exchange.received);
    }
    expect(log, spy.get(), exchange.outcome);
}

void ProxyAnswersTest::pumpRequests_data() {
    QTest::addColumn<PumpRequest>("request");

    addPumpRequest("analog update answered", {4, 1, 4, kUpdate}, le<float>(1.5F), kAnswered,
                   raised(on(&AnalogInputObject::updateTemperature), {1.5F}));
    addPumpRequest("analog update of attribute 8", {4, 1, 8, kUpdate}, le<float>(1.0F),
                   kInvalidAttribute);
    addPumpRequest("analog update of two bytes", {4, 1, 4, kUpdate}, hex("0000"), kInvalidData,
                   silent(on(&AnalogInputObject::updateTemperature),
                          QStringLiteral("UpdateHandler - ") + kReadFailure));
    addPumpRequest("analog get from the pump", {4, 1, 4, kGet}, le<float>(1.0F), kInvalidOperation);
    addPumpRequest("calibration request from the pump: no answer", {4, 3, 0, kUpdate},
                   le<float>(1.0F), "", raised(on(&AnalogCalibrationObject::invalidType)));
    addPumpRequest("filter data raised, never answered", {4, 4, 5, kUpdate},
                   le<float>(12000.5F) + le<float>(2.0F) + le<float>(1600.25F) + le<float>(0.5F),
                   "", raised(on(&AnalogFilterObject::updateFilterData), {u8(5)}));
    addPumpRequest("filter data of twelve bytes", {4, 4, 6, kUpdate},
                   le<uint32_t>(1) + le<uint32_t>(2) + le<uint32_t>(3), "",
                   raised(on(&AnalogFilterObject::invalidData), {u8(6)},
                          QStringLiteral("HandleUpdate - ") + kReadFailure));
    addPumpRequest("filter update of attribute 1", {4, 4, 1, kUpdate}, le<uint32_t>(1), "",
                   raised(on(&AnalogFilterObject::invalidAttribute), {u8(1)}));
    addPumpRequest("filter get from the pump", {4, 4, 5, kGet}, {}, "",
                   raised(on(&AnalogFilterObject::invalidOperation)));

    addPumpRequest("OEM device request from the pump", {1, 2, 3, kUpdate}, hex("01"), kInvalidData);
    const SpyOn dataRequest = on(&FirmwareUpdateObject::dataRequest);
    addPumpRequest(
        "firmware data request with one length byte", {1, 3, 1, kGet}, hex("01 00040000 00"),
        kInvalidData,
        silent(dataRequest, QStringLiteral("HandleIncomingDataRequest - ") + kReadFailure));
    addPumpRequest("firmware data request for more than a payload", {1, 3, 1, kGet},
                   hex("01 00040000 FC04"), kInvalidData, silent(dataRequest));
    addPumpRequest("firmware data request as an update", {1, 3, 1, kUpdate},
                   hex("01 00040000 0004"), kInvalidOperation, silent(dataRequest));
    addPumpRequest("firmware request to attribute 2", {1, 3, 2, kSet}, hex("01"),
                   kInvalidAttribute);
    addPumpRequest("firmware status of two bytes", {1, 3, 3, kUpdate}, hex("03 01"), kInvalidData,
                   silent(on(&FirmwareUpdateObject::statusUpdate)));
    addPumpRequest(
        "firmware status answered, logged and raised", {1, 3, 3, kUpdate},
        hex("04 01 00080000 00100000"), kAnswered,
        raised(on(&FirmwareUpdateObject::statusUpdate), {},
               QStringLiteral(">>> Device::FirmwareUpdate::StatusUpdate: Programming failed [4]")));

    addPumpRequest("fault word answered", {2, 1, 1, kUpdate}, le<uint32_t>(0x12), kAnswered,
                   raised(on(&PumpObject::updateFaults), {0x12U}));
    addPumpRequest("cover status empty", {2, 1, 7, kUpdate}, {}, kInvalidData,
                   silent(on(&PumpObject::updateCoverStatus),
                          QStringLiteral("UpdateHandler - ") + kReadFailure));
    addPumpRequest("application speed empty", {2, 1, 3, kUpdate}, {}, kInvalidData,
                   silent(on(&PumpObject::updateApplicationSpeed)));
    addPumpRequest("pump update of attribute 2", {2, 1, 2, kUpdate}, hex("01"), kInvalidAttribute);
    addPumpRequest("pump update of attribute 10", {2, 1, 10, kUpdate}, hex("01"),
                   kInvalidAttribute);
    addPumpRequest("pump set from the pump", {2, 1, 7, kSet}, hex("01"), kInvalidOperation);

    addPumpRequest("prime speed answered", {2, 2, 3, kUpdate}, le<uint32_t>(1234), kAnswered,
                   raised(on(&PrimeObject::updatePrimeSpeed), {1234U}));
    addPumpRequest("prime update of attribute 2", {2, 2, 2, kUpdate}, hex("00"), kInvalidAttribute);
    addPumpRequest("prime speed of two bytes", {2, 2, 3, kUpdate}, hex("0102"), kInvalidData,
                   silent(on(&PrimeObject::updatePrimeSpeed),
                          QStringLiteral("UpdateHandler - ") + kReadFailure));
    addPumpRequest("prime get from the pump", {2, 2, 3, kGet}, {}, kInvalidOperation);

    addPumpRequest("alignment answered", {3, 1, 8, kUpdate}, hex("01"), kAnswered,
                   raised(on(&MotorObject::updateIsAligned), {true}));
    addPumpRequest(
        "actual speed of one byte", {3, 1, 3, kUpdate}, hex("01"), kInvalidData,
        silent(on(&MotorObject::updateActualSpeed), QStringLiteral("ActualSpeedUpdateHandler")));
    addPumpRequest("motor update of attribute 4", {3, 1, 4, kUpdate}, hex("01"), kInvalidAttribute);
    addPumpRequest("motor get from the pump", {3, 1, 3, kGet}, {}, kInvalidOperation);

    addPumpRequest("IP configuration answered", {6, 1, 4, kUpdate}, kIpConfigBytes, kAnswered,
                   raised(on(&NetworkObject::updateIpConfig)));
    addPumpRequest(
        "link status empty", {6, 1, 5, kUpdate}, {}, kInvalidData,
        silent(on(&NetworkObject::updateLinkStatus), QStringLiteral("UpdateLinkStatusHandler")));
    addPumpRequest("network update of attribute 3", {6, 1, 3, kUpdate}, hex("01"),
                   kInvalidAttribute);
    addPumpRequest("network set from the pump", {6, 1, 4, kSet}, kIpConfigBytes, kInvalidOperation);

    addPumpRequest("enable line answered", {5, 1, 11, kUpdate}, hex("01"), kAnswered,
                   raised(on(&SpeedCommanderObject::updateEnableLineAsserted), {true}));
    addPumpRequest("target speed of one byte", {5, 1, 7, kUpdate}, hex("01"), kInvalidData,
                   silent(on(&SpeedCommanderObject::updateVoltageTargetSpeed),
                          QStringLiteral("UpdateTargetSpeedHandler")));
    addPumpRequest("enable line empty", {5, 1, 11, kUpdate}, {}, kInvalidData,
                   silent(on(&SpeedCommanderObject::updateEnableLineAsserted),
                          QStringLiteral("UpdateEnableLineAssertedHandler")));
    addPumpRequest("commander update of attribute 1", {5, 1, 1, kUpdate}, kProfileBytes,
                   kInvalidAttribute);
    addPumpRequest("commander get from the pump", {5, 1, 3, kGet}, {}, kInvalidOperation);
}

void ProxyAnswersTest::pumpRequests() {
    QFETCH(PumpRequest, request);
    testsupport::LogCapture log;
    testsupport::LinkHarness link;
    ProtocolObjectContainer proxies(link.protocol());
    const std::unique_ptr<QSignalSpy> spy =
        request.outcome.signal ? request.outcome.signal(proxies) : nullptr;
    const auto& [object, instance, attribute, operation] = request.header;
    link.pumpRequest(object, instance, attribute, operation, request.payload);
    QCOMPARE(link.lastBytes(), request.reply);
    QCOMPARE(link.sentCount(), request.reply.isEmpty() ? 0 : 1);
    expect(log, spy.get(), request.outcome);
}

QTEST_GUILESS_MAIN(ProxyAnswersTest)
#include "tst_ProxyAnswers.moc"
