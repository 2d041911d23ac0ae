#include "FirmwareUpdateSimObject.h"

#include "tools/pump-simulator/PumpModel.h"
#include "tools/pump-simulator/SerialLine.h"
#include "tools/pump-simulator/SimulatorClock.h"

#include <QDebug>

#include <zlib.h>

#include <algorithm>

namespace simulator {

namespace msg = halyard::protocol::message;
using halyard::protocol::PayloadWriter;

namespace {

namespace attribute {
constexpr std::uint8_t kImageControl = 0;
constexpr std::uint8_t kDataRequest = 1;
constexpr std::uint8_t kImageData = 2;
constexpr std::uint8_t kStatus = 3;
} // namespace attribute

constexpr std::uint8_t kApplicationBank = 0;
constexpr int kPieceWatchMs = 100;
constexpr std::uint32_t kSectorBytes = 4096;

std::uint32_t Crc32(const QByteArray& bytes) {
    return static_cast<std::uint32_t>(crc32(crc32(0L, Z_NULL, 0),
                                            reinterpret_cast<const Bytef*>(bytes.constData()),
                                            static_cast<uInt>(bytes.size())));
}

} // namespace

FirmwareUpdateSimObject::FirmwareUpdateSimObject(const Context& context, PumpModel& model,
                                                 SimulatorOptions::FirmwareFault fault,
                                                 bool pacedLine)
    : SimObject(context, 1, 3)
    , mModel(model)
    , mFault(fault)
    , mPacedLine(pacedLine) {
    mRequestTimer.setSingleShot(true);
    mRequestTimer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&mRequestTimer, &QTimer::timeout, [this] { requestPieces(); });
    mEraseTimer.setSingleShot(true);
    QObject::connect(&mEraseTimer, &QTimer::timeout, [this] { finishErase(); });
    mVerifyTimer.setSingleShot(true);
    QObject::connect(&mVerifyTimer, &QTimer::timeout, [this] { finishVerify(); });
    mPieceWatch.setInterval(kPieceWatchMs);
    QObject::connect(&mPieceWatch, &QTimer::timeout, [this] { checkPieceWaits(); });
}

int FirmwareUpdateSimObject::eraseTimeMs(std::uint32_t imageSize) {
    return 50 + 25 * static_cast<int>((imageSize + kSectorBytes - 1) / kSectorBytes);
}

int FirmwareUpdateSimObject::verifyTimeMs(std::uint32_t imageSize) {
    return 20 + static_cast<int>(imageSize / kSectorBytes);
}

void FirmwareUpdateSimObject::onRequest(const Message& request) {
    switch (request.attribute) {
    case attribute::kImageControl:
        switch (request.operation) {
        case msg::Operation::Start:
            handleStart(request);
            return;
        case msg::Operation::Verify:
            handleVerify(request);
            return;
        case msg::Operation::Stop:
            handleStop(request);
            return;
        default:
            break;
        }
        break;
    case attribute::kImageData:
        if (request.operation == msg::Operation::Set) {
            handlePiece(request);
            return;
        }
        break;
    case attribute::kDataRequest:
    case attribute::kStatus:
        break; // the pump's own requests: the application never sends them
    default:
        reply(request, Status::InvalidAttribute);
        return;
    }
    reply(request, Status::InvalidOperation);
}

void FirmwareUpdateSimObject::handleStart(const Message& request) {
    auto reader = request.Reader();
    std::uint8_t bank = 0;
    std::uint32_t size = 0;
    std::uint32_t crc = 0;
    if (!reader.Read(bank) || !reader.Read(size) || !reader.Read(crc) || size == 0) {
        refuseData(request, "start payload short or image size 0");
        return;
    }
    const bool otherBankBusy = mTransfer.active && mTransfer.bank != bank;
    if (bank >= kBankCount || size > kBankCapacity || otherBankBusy) {
        qWarning("Firmware: start of bank %u (%u bytes) refused", bank, size);
        reply(request, Status::Failed);
        return;
    }
    reply(request, Status::Success);
    // A start of the bank being programmed begins that transfer again from offset 0.
    abandon();
    mTransfer = Transfer{};
    mTransfer.active = true;
    mTransfer.bank = bank;
    mTransfer.size = size;
    mTransfer.crc = crc;
    mTransfer.image = QByteArray(static_cast<qsizetype>(size), '\xFF'); // erased flash
    mReceivedUpTo[bank] = 0;
    mNextRequestAtMs = 0;
    mVerifiedBank.reset();
    qInfo("Firmware: bank %u, %u bytes, CRC-32 %08x: erasing", bank, size, crc);
    mModel.logEvent(QStringLiteral("Firmware update of bank %1 started").arg(bank));
    report(Erasing);
    mEraseTimer.start(eraseTimeMs(size));
}

void FirmwareUpdateSimObject::finishErase() {
    if (faultDue(SimulatorOptions::FirmwareFault::Erase)) {
        end(EraseFailed);
        return;
    }
    report(Programming);
    mPieceWatch.start();
    requestPieces();
}

// Keeps two requests outstanding: each arriving piece is followed at once by a request for the
// piece after the one still outstanding.
void FirmwareUpdateSimObject::requestPieces() {
    while (mTransfer.active && !mTransfer.silent && mOutstanding.size() < kRequestsOutstanding &&
           mTransfer.nextOffset < mTransfer.size) {
        const auto now = static_cast<qint64>(clock().ElapsedMilliseconds());
        if (mPacedLine && !mOutstanding.empty() && now < mNextRequestAtMs) {
            if (!mRequestTimer.isActive()) {
                mRequestTimer.start(static_cast<int>(mNextRequestAtMs - now));
            }
            return;
        }
        DataRequest request;
        request.offset = mTransfer.nextOffset;
        request.length = static_cast<std::uint16_t>(std::min<std::uint32_t>(
            mPacedLine ? kPacedPieceLength : kPieceLength, mTransfer.size - mTransfer.nextOffset));
        request.firstSentAtMs = now;
        mTransfer.nextOffset += request.length;
        mOutstanding.push_back(request);
        if (mOutstanding.size() == 1) {
            scheduleNextRequest(now, request.length);
        }
        if (!sendDataRequest(mOutstanding.back())) {
            end(Failed);
            return;
        }
    }
}

bool FirmwareUpdateSimObject::sendDataRequest(DataRequest& request) {
    Message message;
    message.type = msg::Type::Request;
    message.object = ObjectId();
    message.instance = Instance();
    message.attribute = attribute::kDataRequest;
    message.SetOperation(msg::Operation::Get);
    PayloadWriter writer = message.Writer();
    writer.Write(mTransfer.bank);
    writer.Write(request.offset);
    writer.Write(request.length);
    writer.Close();
    if (!Messaging().Send(message)) {
        qWarning("Firmware: data request for offset %u could not be sent", request.offset);
        return false;
    }
    request.id = message.id;
    request.acknowledged = false;
    ++request.sends;
    return true;
}

void FirmwareUpdateSimObject::scheduleNextRequest(qint64 pieceStartMs, std::uint16_t length) {
    const double wireMs = (length + kPieceOverheadBytes) * 1000.0 / SerialLine::kLineBytesPerSecond;
    mNextRequestAtMs = pieceStartMs + static_cast<qint64>(wireMs) - kRequestLeadMs;
}

void FirmwareUpdateSimObject::handlePiece(const Message& request) {
    auto reader = request.Reader();
    std::uint8_t bank = 0;
    std::uint32_t offset = 0;
    if (!reader.Read(bank) || !reader.Read(offset)) {
        refuseData(request, "piece payload short");
        return;
    }
    const std::size_t length = reader.Remaining();
    const auto outstanding =
        std::find_if(mOutstanding.begin(), mOutstanding.end(),
                     [offset](const DataRequest& wanted) { return wanted.offset == offset; });
    const bool ours = mTransfer.active && bank == mTransfer.bank;
    if (outstanding == mOutstanding.end() && bank < kBankCount &&
        offset + length <= mReceivedUpTo[bank]) {
        reply(request, Status::Success); // a repeat of a piece already taken
        return;
    }
    if (!ours || outstanding == mOutstanding.end() || length != outstanding->length) {
        refuseData(request, "piece that was not asked for");
        return;
    }
    reply(request, Status::Success);
    std::copy_n(reinterpret_cast<const char*>(request.payload.data()) + 5, length,
                mTransfer.image.begin() + offset);
    mOutstanding.erase(outstanding);
    mReceivedUpTo[bank] =
        std::max<std::uint32_t>(mReceivedUpTo[bank], offset + static_cast<std::uint32_t>(length));
    if (mOutstanding.size() == 1) {
        // The other piece comes next on the line, from now or from when it was asked for.
        const DataRequest& next = mOutstanding.front();
        scheduleNextRequest(
            std::max(static_cast<qint64>(clock().ElapsedMilliseconds()), next.firstSentAtMs),
            next.length);
    }
    if (mTransfer.silent) {
        return;
    }
    mTransfer.programmed += static_cast<std::uint32_t>(length);
    const bool halfway = mTransfer.programmed >= mTransfer.size / 2;
    if (halfway && faultDue(SimulatorOptions::FirmwareFault::Program)) {
        end(ProgramFailed);
        return;
    }
    if (halfway && faultDue(SimulatorOptions::FirmwareFault::Silent)) {
        qInfo("Firmware: falling silent at %u of %u bytes", mTransfer.programmed, mTransfer.size);
        mTransfer.silent = true;
        mOutstanding.clear();
        mStatusPending = false;
        return;
    }
    if (mTransfer.programmed == mTransfer.size ||
        mTransfer.programmed - mTransfer.lastReported >= kStatusEveryBytes) {
        report(Programming);
    }
    requestPieces();
}

void FirmwareUpdateSimObject::handleVerify(const Message& request) {
    std::uint8_t bank = 0;
    if (!readField(request, bank)) {
        refuseData(request, "verify payload short");
        return;
    }
    if (mVerifiedBank == bank) {
        reply(request, Status::Success); // a repeat: the answer may have been lost
        report(Success);
        return;
    }
    const bool complete = mTransfer.active && bank == mTransfer.bank &&
                          mTransfer.programmed == mTransfer.size && !mTransfer.silent;
    if (!complete) {
        reply(request, Status::Failed);
        return;
    }
    reply(request, Status::Success);
    if (mTransfer.stage != Verifying) {
        report(Verifying);
        mVerifyTimer.start(verifyTimeMs(mTransfer.size));
    }
}

void FirmwareUpdateSimObject::finishVerify() {
    const bool matches = Crc32(mTransfer.image) == mTransfer.crc;
    if (!matches || faultDue(SimulatorOptions::FirmwareFault::Verify)) {
        end(VerifyFailed);
        return;
    }
    installIfApplication();
    mVerifiedBank = mTransfer.bank;
    end(Success);
}

void FirmwareUpdateSimObject::installIfApplication() {
    const QByteArray& image = mTransfer.image;
    if (mTransfer.bank != kApplicationBank || image.size() < 7 || !image.startsWith("BWFW")) {
        return;
    }
    const halyard::SemanticVersion version{static_cast<std::uint8_t>(image[4]),
                                           static_cast<std::uint8_t>(image[5]),
                                           static_cast<std::uint8_t>(image[6])};
    mModel.installFirmware(version);
    qInfo("Firmware: application %u.%u.%u installed, runs after the next restart", version.major,
          version.minor, version.patch);
}

void FirmwareUpdateSimObject::handleStop(const Message& request) {
    std::uint8_t bank = 0;
    if (!readField(request, bank)) {
        refuseData(request, "stop payload short");
        return;
    }
    reply(request, Status::Success);
    if (mTransfer.active && bank == mTransfer.bank) {
        qInfo("Firmware: transfer of bank %u stopped", bank);
        mTransfer.silent = false;
        end(Ready);
    }
}

void FirmwareUpdateSimObject::onAnswer(const Message& answer) {
    const bool timedOut =
        answer.type == msg::Type::NakStatus && answer.status == Status::RequestAckTimeout;
    if (answer.attribute == attribute::kStatus && mStatusPending && answer.id == mStatus.id) {
        // Answered, or repeated until the fourth send goes unanswered too.
        const bool repeat = timedOut && mStatusSends < kMaxSends && sendStatus();
        mStatusSends += repeat ? 1 : 0;
        mStatusPending = repeat;
        return;
    }
    if (answer.attribute != attribute::kDataRequest) {
        return;
    }
    const auto request = std::find_if(mOutstanding.begin(), mOutstanding.end(),
                                      [&answer](const DataRequest& wanted) {
                                          return !wanted.acknowledged && wanted.id == answer.id;
                                      });
    if (request == mOutstanding.end()) {
        return;
    }
    if (!timedOut) {
        request->acknowledged = true;
        request->acknowledgedAtMs = static_cast<qint64>(clock().ElapsedMilliseconds());
        return;
    }
    if (request->sends >= kMaxSends || !sendDataRequest(*request)) {
        qWarning("Firmware: data request for offset %u unanswered %d times", request->offset,
                 request->sends);
        end(Failed);
    }
}

// An acknowledged request whose piece never comes (the application lost its session, say) is
// asked again, and counts as a send.
void FirmwareUpdateSimObject::checkPieceWaits() {
    const auto now = static_cast<qint64>(clock().ElapsedMilliseconds());
    for (DataRequest& request : mOutstanding) {
        if (!request.acknowledged || now - request.acknowledgedAtMs < kPieceWaitMs) {
            continue;
        }
        if (request.sends >= kMaxSends || !sendDataRequest(request)) {
            qWarning("Firmware: piece at offset %u never came", request.offset);
            end(Failed);
            return;
        }
    }
}

void FirmwareUpdateSimObject::report(Stage stage) {
    mTransfer.stage = stage;
    if (mTransfer.silent) {
        return;
    }
    if (stage == Programming) {
        mTransfer.lastReported = mTransfer.programmed;
    }
    mStatus = Message{};
    mStatus.type = msg::Type::Request;
    mStatus.object = ObjectId();
    mStatus.instance = Instance();
    mStatus.attribute = attribute::kStatus;
    mStatus.SetOperation(msg::Operation::Update);
    PayloadWriter writer = mStatus.Writer();
    writer.Write(static_cast<std::uint8_t>(stage));
    writer.Write(mTransfer.bank);
    writer.Write(stage == Erasing ? 0U : mTransfer.programmed);
    writer.Write(mTransfer.size);
    writer.Close();
    mStatusSends = 1;
    mStatusPending = sendStatus();
}

bool FirmwareUpdateSimObject::sendStatus() {
    // The message layer gives every send a fresh id, which the kept copy takes for matching.
    return Messaging().Send(mStatus);
}

// The transfer is over; what the bank got stays in it.
void FirmwareUpdateSimObject::end(Stage stage) {
    mRequestTimer.stop();
    mEraseTimer.stop();
    mVerifyTimer.stop();
    mPieceWatch.stop();
    mOutstanding.clear();
    report(stage);
    mTransfer.active = false;
    qInfo("Firmware: transfer of bank %u ended: stage %u", mTransfer.bank,
          static_cast<unsigned>(stage));
    mModel.logEvent(QStringLiteral("Firmware update of bank %1 ended, stage %2")
                        .arg(mTransfer.bank)
                        .arg(static_cast<unsigned>(stage)));
}

void FirmwareUpdateSimObject::abandon() {
    mRequestTimer.stop();
    mEraseTimer.stop();
    mVerifyTimer.stop();
    mPieceWatch.stop();
    mOutstanding.clear();
    mStatusPending = false;
    mTransfer.active = false;
}

bool FirmwareUpdateSimObject::faultDue(SimulatorOptions::FirmwareFault fault) {
    if (mFault != fault) {
        return false;
    }
    mFault = SimulatorOptions::FirmwareFault::None; // once only
    qInfo("Firmware: injecting the fault asked for on the command line");
    return true;
}

} // namespace simulator
