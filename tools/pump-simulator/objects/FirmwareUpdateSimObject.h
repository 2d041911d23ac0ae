#pragma once

#include "SimObject.h"

#include "tools/pump-simulator/SimulatorOptions.h"

#include <QByteArray>
#include <QTimer>

#include <array>
#include <optional>
#include <vector>

namespace simulator {

class PumpModel;

/// The firmware-update object (object 1, instance 3), the pump's side of
/// docs/firmware-update-object.md. After Start it erases the bank (a time that grows with the
/// image), asks for the image in 1024-byte pieces with two requests outstanding, reports its
/// stage and progress, and on Verify compares the CRC-32 of what it holds with the one Start
/// gave. It repeats its own unanswered requests (data requests and the latest status) up to four
/// sends, and asks again for a piece that was acknowledged but never came; after that the
/// transfer fails. The half-programmed bank stays as it is, unverified, until the next Start.
///
/// On a line paced at its real rate two requests outstanding would make the second piece wait
/// a whole piece's time behind the first and outlast the application's request time-out. So
/// there the pump asks for the next piece only when the one before is nearly through the line
/// (kRequestLeadMs before its last byte is due): the line stays busy and no piece waits.
///
/// A verified image of bank 0 (the application) whose first bytes are the header "BWFW" and a
/// version major.minor.patch becomes the firmware version the pump reports after its next
/// restart.
class FirmwareUpdateSimObject final : public SimObject {
public:
    static constexpr std::uint8_t kBankCount = 4;
    static constexpr std::uint32_t kBankCapacity = 1024 * 1024;
    static constexpr std::uint16_t kPieceLength = 1024;
    /// On a paced line: seven 128-byte pages, so that a piece, its lead and the answer stay well
    /// inside the application's 100 ms request time-out (about 88 ms at 11520 bytes/s).
    static constexpr std::uint16_t kPacedPieceLength = 896;
    static constexpr std::size_t kRequestsOutstanding = 2;
    static constexpr std::uint32_t kStatusEveryBytes = 8192;
    static constexpr int kMaxSends = 4;
    /// How long an acknowledged data request may wait for its piece before it is asked again.
    static constexpr int kPieceWaitMs = 1000;

    /// How long before a piece's expected end the next is asked for, on a paced line.
    static constexpr int kRequestLeadMs = 8;
    /// Bytes on the line around each piece's data: its frame's header, bank, offset and COBS
    /// overhead, and the acknowledgement of its data request.
    static constexpr int kPieceOverheadBytes = 26;

    FirmwareUpdateSimObject(const Context& context, PumpModel& model,
                            SimulatorOptions::FirmwareFault fault, bool pacedLine);

    /// Erase time of an image: 50 ms plus 25 ms for each 4 KiB sector.
    static int eraseTimeMs(std::uint32_t imageSize);
    /// Verify time: 20 ms plus 1 ms for each 4 KiB.
    static int verifyTimeMs(std::uint32_t imageSize);

    /// A restart ends any transfer (the bank keeps what it got).
    void abandon();

protected:
    void onRequest(const Message& request) override;
    void onAnswer(const Message& answer) override;

private:
    enum Stage : std::uint8_t {
        Ready = 0,
        Erasing = 1,
        EraseFailed = 2,
        Programming = 3,
        ProgramFailed = 4,
        Verifying = 5,
        VerifyFailed = 6,
        Failed = 7,
        Success = 8,
    };

    struct DataRequest {
        std::uint32_t offset = 0;
        std::uint16_t length = 0;
        std::uint8_t id = 0;
        int sends = 0;
        qint64 firstSentAtMs = 0;
        bool acknowledged = false;
        qint64 acknowledgedAtMs = 0;
    };

    struct Transfer {
        bool active = false;
        std::uint8_t bank = 0;
        std::uint32_t size = 0;
        std::uint32_t crc = 0;
        QByteArray image;
        std::uint32_t nextOffset = 0; ///< the first byte not yet asked for
        std::uint32_t programmed = 0;
        std::uint32_t lastReported = 0;
        Stage stage = Ready;
        bool silent = false; ///< the "silent" fault: asks and says nothing more
    };

    void handleStart(const Message& request);
    void handleVerify(const Message& request);
    void handleStop(const Message& request);
    void handlePiece(const Message& request);

    void finishErase();
    void finishVerify();
    void requestPieces();
    /// On a paced line: when the piece still outstanding should be nearly through the line.
    void scheduleNextRequest(qint64 pieceStartMs, std::uint16_t length);
    bool sendDataRequest(DataRequest& request);
    void checkPieceWaits();
    void report(Stage stage);
    bool sendStatus();
    void end(Stage stage);
    bool faultDue(SimulatorOptions::FirmwareFault fault);
    void installIfApplication();

    PumpModel& mModel;
    SimulatorOptions::FirmwareFault mFault;
    bool mPacedLine;
    Transfer mTransfer;
    std::array<std::uint32_t, kBankCount> mReceivedUpTo{}; ///< per bank, for repeated pieces
    qint64 mNextRequestAtMs = 0;
    QTimer mRequestTimer;
    std::optional<std::uint8_t> mVerifiedBank; ///< the last transfer ended in Success
    std::vector<DataRequest> mOutstanding;
    Message mStatus; ///< the latest status, kept for its repeats
    bool mStatusPending = false;
    int mStatusSends = 0;
    QTimer mEraseTimer;
    QTimer mVerifyTimer;
    QTimer mPieceWatch;
};

} // namespace simulator
