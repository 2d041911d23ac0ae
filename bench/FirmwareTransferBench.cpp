// Firmware transfer over a line at its real rate: the application's update stack (controller,
// model, proxy and link on its thread, pump session) against the pump simulator with --pace
// (11520 bytes/s each way), one image. Prints the image bytes delivered per second from the
// pump's first data request to the last piece acknowledged, that rate as a share of the line
// rate, and the whole update from start to "Update succeeded!" (erase and verify included).
// Usage: firmware_transfer_bench [IMAGE_KIB]   (default 256)

#include "QtApps/Common/Controllers/FirmwareUpdateController.h"
#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Logger/LogSetup.h"
#include "tests/firmware/BundleWriter.h"
#include "tests/support/FirmwareUpdateRig.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <atomic>
#include <cstdio>

using communication::objects::FirmwareUpdateObject;
using firmwareUpdate::FirmwareUpdateController;

namespace {

constexpr double kLineBytesPerSecond = 11520.0;
constexpr int kTimeoutMs = 300000;

// Times of the transfer's first data request and last acknowledged piece, kept on the link's
// thread and read once the update is over.
struct TransferClock {
    QElapsedTimer clock;
    std::atomic<qint64> firstRequestNs{-1};
    std::atomic<qint64> lastPieceNs{-1};
    std::atomic<int> pieces{0};
    std::atomic<int> pieceRetries{0};
};

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    logger::ConfigureDefaults(); // retries and failures show on standard error
    const int imageKib = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 256;
    const int imageBytes = imageKib * 1024;

    QTemporaryDir dir;
    const QString bundle = dir.filePath(QStringLiteral("bench-bundle.zip"));
    const QByteArray manifest =
        testsupport::Manifest(R"([{"device": "BWD-100-SIM", "filename": "main.bin"}])");
    if (!testsupport::WriteZip(bundle,
                               {{"bundle.json", manifest},
                                {"main.bin", testsupport::FirmwareImage(imageBytes, "1.17.0")}})) {
        std::fprintf(stderr, "firmware_transfer_bench: cannot write the bundle\n");
        return 1;
    }

    testsupport::FirmwareUpdateRig rig({QStringLiteral("--pace")});
    QString error;
    if (!rig.start(error)) {
        std::fprintf(stderr, "firmware_transfer_bench: %s\n", qPrintable(error));
        return 1;
    }
    TransferClock transfer;
    transfer.clock.start();
    rig.runOnCommsThread([&rig, &transfer] {
        auto& proxy = rig.comms().protocolObjects().get<FirmwareUpdateObject>();
        QObject::connect(&proxy, &FirmwareUpdateObject::dataRequest, &proxy, [&transfer] {
            qint64 unset = -1;
            transfer.firstRequestNs.compare_exchange_strong(unset, transfer.clock.nsecsElapsed());
        });
        QObject::connect(&proxy, &FirmwareUpdateObject::requestAccepted, &proxy,
                         [&transfer](std::uint8_t attribute, std::uint8_t) {
                             if (attribute == FirmwareUpdateObject::ImageData) {
                                 transfer.lastPieceNs = transfer.clock.nsecsElapsed();
                                 ++transfer.pieces;
                             }
                         });
    });

    FirmwareUpdateController& controller = rig.controller();
    QEventLoop waiting;
    QObject::connect(&controller, &FirmwareUpdateController::statusChanged, &waiting, [&] {
        if (controller.state() == 1 || controller.state() >= 3) {
            waiting.quit();
        }
    });
    QTimer::singleShot(kTimeoutMs, &waiting, &QEventLoop::quit);
    controller.loadBundle(bundle);
    waiting.exec();
    if (controller.state() != 1) {
        std::fprintf(stderr, "firmware_transfer_bench: bundle not ready: %s\n",
                     qPrintable(controller.errorDescription()));
        return 1;
    }
    const qint64 startNs = transfer.clock.nsecsElapsed();
    controller.startUpdate();
    waiting.exec();
    const qint64 endNs = transfer.clock.nsecsElapsed();
    if (controller.state() != 6) {
        std::fprintf(stderr, "firmware_transfer_bench: update ended in state %d: %s\n",
                     controller.state(), qPrintable(controller.errorDescription()));
        return 1;
    }

    const double transferSeconds =
        static_cast<double>(transfer.lastPieceNs - transfer.firstRequestNs) / 1e9;
    const double rate = imageBytes / transferSeconds;
    std::printf("firmware_transfer_bench: %d-byte image, %d pieces acknowledged, line paced at "
                "%.0f bytes/s each way\n",
                imageBytes, transfer.pieces.load(), kLineBytesPerSecond);
    std::printf("image delivered:  %.0f bytes/s (first data request to last piece "
                "acknowledged, %.2f s)\n",
                rate, transferSeconds);
    std::printf("share of line:    %.1f %% of 11520 bytes/s (target at least 96 %%)\n",
                100.0 * rate / kLineBytesPerSecond);
    std::printf("whole update:     %.2f s (start to \"Update succeeded!\", erase and verify "
                "included)\n",
                static_cast<double>(endNs - startNs) / 1e9);
    return 0;
}
