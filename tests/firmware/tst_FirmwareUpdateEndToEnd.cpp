// The firmware update as the application runs it (controller on this thread, model, proxy and
// link on the comms thread, the real pump session) against the pump simulator.

#include "BundleWriter.h"

#include "QtApps/Common/Controllers/FirmwareUpdateController.h"
#include "QtApps/Common/Controllers/PumpSessionController.h"
#include "QtApps/Common/Core/Communication/ProtocolObjectContainer.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "tests/support/FirmwareUpdateRig.h"

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using firmwareUpdate::FirmwareUpdateController;
using testsupport::FirmwareUpdateRig;

namespace {

constexpr int kUpdateTimeoutMs = 30000;
const QString kNoImagesText =
    QStringLiteral("The selected firmware file does not contain any firmware for this pump model.");

// The states the controller went through, each change once.
class StateRecorder : public QObject {
public:
    explicit StateRecorder(FirmwareUpdateController& controller) {
        connect(&controller, &FirmwareUpdateController::statusChanged, this, [this, &controller] {
            if (states.isEmpty() || states.last() != controller.state()) {
                states.append(controller.state());
            }
            texts.append(controller.statusText());
        });
    }
    /// The states went through `sequence` in this order, others possibly between.
    bool passed(const QList<int>& sequence) const {
        qsizetype next = 0;
        for (const int state : states) {
            if (next < sequence.size() && state == sequence[next]) {
                ++next;
            }
        }
        return next == sequence.size();
    }
    QList<int> states;
    QStringList texts;
};

QString FileUrl(const QString& path) {
    return QStringLiteral("file://") + path;
}

QString DemoBundleUrl() {
    return FileUrl(QStringLiteral(DEMO_BUNDLE_PATH));
}

// Back after the reset, with its session: the last of Succeeded, Rebooting, Succeeded.
bool UpdatedAndBack(const StateRecorder& recorder, FirmwareUpdateRig& rig) {
    return recorder.passed({2, 6, 7, 6}) && recorder.states.last() == 6 &&
           rig.session().pumpConnected();
}

} // namespace

class FirmwareUpdateEndToEndTest : public QObject {
    Q_OBJECT

private slots:
    // The settings backups every update makes go to a test folder, not the user's.
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void oneImage_isVerifiedAndThePumpRestartsIntoIt();
    void twoImages_areSentInTheManifestsOrder();
    void pumpFailure_endsInItsStateAndASecondStartSucceeds_data();
    void pumpFailure_endsInItsStateAndASecondStartSucceeds();
    void sessionLostMidTransfer_endsDisconnectedAndASecondStartSucceeds();
    void onePercentOfFramesLost_updateStillCompletes();
    void pumpModelWithoutImages_isRefusedAndNothingIsSent();
    void invalidBundle_isRefusedAndReplacesTheLoadedOne();

private:
    QString writeBundle(const QList<testsupport::ZipMember>& members) {
        const QString path = mDir.filePath(QStringLiteral("bundle-%1.zip").arg(++mCount));
        if (!testsupport::WriteZip(path, members)) {
            qFatal("cannot write %s", qPrintable(path));
        }
        return path;
    }
    // Loads the demo bundle and waits for it to be ready for the simulated pump.
    void loadDemoBundle(FirmwareUpdateRig& rig) {
        rig.controller().loadBundle(DemoBundleUrl());
        QTRY_COMPARE(rig.controller().state(), 1);
        QVERIFY(rig.controller().updateEnabled());
    }

    QTemporaryDir mDir;
    int mCount = 0;
};

void FirmwareUpdateEndToEndTest::oneImage_isVerifiedAndThePumpRestartsIntoIt() {
    FirmwareUpdateRig rig({});
    QString error;
    QVERIFY2(rig.start(error), qPrintable(error));
    FirmwareUpdateController& controller = rig.controller();
    const QString path =
        writeBundle({{"bundle.json", testsupport::Manifest(R"([{"device": "BWD-100-SIM", "bank": 0,
            "filename": "main.bin"}, {"device": "BWD-200-NET", "filename": "other.bin"}])")},
                     {"main.bin", testsupport::FirmwareImage(20000, "1.17.2")},
                     {"other.bin", testsupport::FirmwareImage(100)}});

    controller.loadBundle(FileUrl(path));
    QTRY_COMPARE(controller.state(), 1);
    QCOMPARE(controller.statusText(), QStringLiteral("Ready to update"));
    QCOMPARE(controller.bundleSummary(),
             QStringLiteral("Firmware bundle loaded\nBuild version: 1.17.0\nBuild time: "
                            "2026-11-20T14:30:00Z\nModels:\n * BWD-100-SIM (0)\n"));
    QCOMPARE(controller.images(), QStringList{QStringLiteral("BWD-100-SIM (0)")});

    StateRecorder recorder(controller);
    controller.startUpdate();
    QTRY_VERIFY_WITH_TIMEOUT(UpdatedAndBack(recorder, rig), kUpdateTimeoutMs);
    QCOMPARE(recorder.states, (QList<int>{2, 6, 7, 6}));
    QVERIFY(recorder.texts.contains(QStringLiteral("[0%] Erasing")));
    QVERIFY(recorder.texts.contains(QStringLiteral("[100%] Verifying")));
    QVERIFY(recorder.texts.contains(QStringLiteral("Rebooting...")));
    QCOMPARE(controller.statusText(), QStringLiteral("Update succeeded!"));
    QCOMPARE(controller.progressValue(), 100);
    QVERIFY(controller.errorDescription().isEmpty());
    QVERIFY(controller.updateEnabled());

    // The restarted pump runs the version its image carried.
    QString version;
    auto& details = rig.values().get<communication::DeviceDetailsGetAll>();
    QObject receiver;
    QObject::connect(&details, &communication::DeviceDetailsGetAll::getAllResponse, &receiver,
                     [&version](const communication::objects::DeviceDetails& answer) {
                         version = QStringLiteral("%1.%2.%3")
                                       .arg(answer.appVersion.major)
                                       .arg(answer.appVersion.minor)
                                       .arg(answer.appVersion.patch);
                     });
    QMetaObject::invokeMethod(&details, &communication::DeviceDetailsGetAll::getAll);
    QTRY_COMPARE(version, QStringLiteral("1.17.2"));
}

void FirmwareUpdateEndToEndTest::twoImages_areSentInTheManifestsOrder() {
    FirmwareUpdateRig rig({});
    QString error;
    QVERIFY2(rig.start(error), qPrintable(error));
    loadDemoBundle(rig);
    QCOMPARE(rig.controller().images(),
             (QStringList{QStringLiteral("BWD-100-SIM (0)"), QStringLiteral("BWD-100-SIM (1)")}));

    QList<int> verifiedBanks;
    QObject receiver;
    auto& proxy = rig.comms().protocolObjects().get<communication::objects::FirmwareUpdateObject>();
    QObject::connect(&proxy, &communication::objects::FirmwareUpdateObject::statusUpdate, &receiver,
                     [&verifiedBanks](halyard::firmwareUpdate::FirmwareUpdateStatus s) {
                         if (s.stage == 8) {
                             verifiedBanks.append(s.bank);
                         }
                     });
    StateRecorder recorder(rig.controller());
    rig.controller().startUpdate();
    QTRY_VERIFY_WITH_TIMEOUT(UpdatedAndBack(recorder, rig), kUpdateTimeoutMs);
    QCOMPARE(verifiedBanks, (QList<int>{0, 1}));
    QCOMPARE(rig.controller().progressValue(), 100);
}

void FirmwareUpdateEndToEndTest::pumpFailure_endsInItsStateAndASecondStartSucceeds_data() {
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("description");
    QTest::newRow("erase") << "erase" << 5 << "Update failed: Erase failed (BWD-100-SIM (0))";
    QTest::newRow("program") << "program" << 5 << "Update failed: Program failed (BWD-100-SIM (0))";
    QTest::newRow("verify") << "verify" << 5 << "Update failed: Verify failed (BWD-100-SIM (0))";
    QTest::newRow("silent") << "silent" << 3 << "Timed out waiting for response";
}

void FirmwareUpdateEndToEndTest::pumpFailure_endsInItsStateAndASecondStartSucceeds() {
    QFETCH(QString, fault);
    QFETCH(int, state);
    QFETCH(QString, description);
    FirmwareUpdateRig rig({QStringLiteral("--firmware-fault"), fault});
    QString error;
    QVERIFY2(rig.start(error), qPrintable(error));
    loadDemoBundle(rig);
    FirmwareUpdateController& controller = rig.controller();
    QSignalSpy errors(&controller, &FirmwareUpdateController::errorOccurred);

    controller.startUpdate();
    QTRY_VERIFY_WITH_TIMEOUT(controller.state() == state, kUpdateTimeoutMs);
    QCOMPARE(controller.errorDescription(), description);
    QCOMPARE(errors.size(), 1);
    QVERIFY(!controller.updating());
    QVERIFY(controller.updateEnabled()); // the bundle is still loaded
    QCOMPARE(controller.images().size(), 2);

    StateRecorder recorder(controller);
    controller.startUpdate();
    QTRY_VERIFY_WITH_TIMEOUT(recorder.passed({2, 6}), kUpdateTimeoutMs);
    QVERIFY(controller.errorDescription().isEmpty());
}

void FirmwareUpdateEndToEndTest::sessionLostMidTransfer_endsDisconnectedAndASecondStartSucceeds() {
    // At the line's real rate the transfer lasts long enough to be cut.
    FirmwareUpdateRig rig({QStringLiteral("--pace")});
    QString error;
    QVERIFY2(rig.start(error), qPrintable(error));
    loadDemoBundle(rig);
    FirmwareUpdateController& controller = rig.controller();
    QObject cutter;
    QObject::connect(&controller, &FirmwareUpdateController::progressChanged, &cutter,
                     [&controller, &rig, &cutter] {
                         if (controller.progressValue() > 0) {
                             QObject::disconnect(&controller, nullptr, &cutter, nullptr);
                             emit rig.session().disconnectPump();
                         }
                     });
    controller.startUpdate();
    QTRY_COMPARE_WITH_TIMEOUT(controller.state(), 4, kUpdateTimeoutMs);
    QCOMPARE(controller.errorDescription(), QStringLiteral("Disconnected"));
    QVERIFY(!controller.updateEnabled());

    // The session comes back by itself; the bundle is still there.
    QTRY_COMPARE_WITH_TIMEOUT(controller.state(), 1, kUpdateTimeoutMs);
    QVERIFY(controller.updateEnabled());
    StateRecorder recorder(controller);
    controller.startUpdate();
    QTRY_VERIFY_WITH_TIMEOUT(recorder.passed({2, 6}), kUpdateTimeoutMs);
}

void FirmwareUpdateEndToEndTest::onePercentOfFramesLost_updateStillCompletes() {
    FirmwareUpdateRig rig({QStringLiteral("--drop-in"), QStringLiteral("0.01"),
                           QStringLiteral("--drop-out"), QStringLiteral("0.01"),
                           QStringLiteral("--seed"), QStringLiteral("20261123")});
    QString error;
    QVERIFY2(rig.start(error), qPrintable(error));
    loadDemoBundle(rig);
    StateRecorder recorder(rig.controller());
    rig.controller().startUpdate();
    QTRY_VERIFY_WITH_TIMEOUT(UpdatedAndBack(recorder, rig), kUpdateTimeoutMs);
    QCOMPARE(rig.controller().progressValue(), 100);
}

void FirmwareUpdateEndToEndTest::pumpModelWithoutImages_isRefusedAndNothingIsSent() {
    FirmwareUpdateRig rig({QStringLiteral("--part-number"), QStringLiteral("BWD-300-XL")});
    QString error;
    QVERIFY2(rig.start(error), qPrintable(error));
    FirmwareUpdateController& controller = rig.controller();
    QSignalSpy errors(&controller, &FirmwareUpdateController::errorOccurred);
    QSignalSpy updating(&controller, &FirmwareUpdateController::updatingChanged);

    controller.loadBundle(DemoBundleUrl());
    QTRY_COMPARE(errors.size(), 1);
    QCOMPARE(errors.first().first().toString(), kNoImagesText);
    QCOMPARE(controller.errorDescription(), kNoImagesText);
    QCOMPARE(controller.state(), 0);
    QVERIFY(controller.images().isEmpty());
    QVERIFY(controller.bundleSummary().isEmpty());
    QVERIFY(!controller.updateEnabled());

    controller.startUpdate();
    QTRY_COMPARE(errors.size(), 2);
    QCOMPARE(controller.errorDescription(), QStringLiteral("Firmware not loaded or not connected"));
    QCOMPARE(controller.state(), 0);
    QCOMPARE(updating.size(), 0);
}

void FirmwareUpdateEndToEndTest::invalidBundle_isRefusedAndReplacesTheLoadedOne() {
    FirmwareUpdateRig rig({});
    QString error;
    QVERIFY2(rig.start(error), qPrintable(error));
    loadDemoBundle(rig);
    FirmwareUpdateController& controller = rig.controller();
    QSignalSpy errors(&controller, &FirmwareUpdateController::errorOccurred);
    QSignalSpy updating(&controller, &FirmwareUpdateController::updatingChanged);

    const QString broken = writeBundle({{"bundle.json", R"({"build": {}, "images": []})"}});
    controller.loadBundle(FileUrl(broken));
    QTRY_COMPARE(errors.size(), 1);
    QCOMPARE(controller.errorDescription(),
             QStringLiteral("The selected firmware bundle is invalid."));
    QCOMPARE(controller.state(), 0);
    QVERIFY(controller.images().isEmpty());
    QVERIFY(!controller.updateEnabled());

    controller.startUpdate();
    QTRY_COMPARE(errors.size(), 2);
    QCOMPARE(updating.size(), 0);
}

QTEST_GUILESS_MAIN(FirmwareUpdateEndToEndTest)
#include "tst_FirmwareUpdateEndToEnd.moc"
