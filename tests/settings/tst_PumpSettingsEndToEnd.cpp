#include "QtApps/Common/Controllers/PumpSettingsController.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SignalCounter.h"
#include "tests/support/SimulatorLink.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace communication;
using testsupport::SignalCounter;
using testsupport::SimulatorLink;

namespace {

constexpr int kResultTimeoutMs = 8000;

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject readObject(const QString& path) {
    return QJsonDocument::fromJson(readAll(path)).object();
}

void writeObject(const QString& path, const QJsonObject& root) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(QJsonDocument(root).toJson());
}

// `root` with the value at "section/key" or "section/object/key" replaced.
QJsonObject with(QJsonObject root, const QString& path, const QJsonValue& value) {
    const QStringList keys = path.split(QLatin1Char('/'));
    QJsonObject section = root.value(keys[0]).toObject();
    if (keys.size() == 3) {
        QJsonObject inner = section.value(keys[1]).toObject();
        inner.insert(keys[2], value);
        section.insert(keys[1], inner);
    } else {
        section.insert(keys[1], value);
    }
    root.insert(keys[0], section);
    return root;
}

// An analog file as a stepper analog pump with a nema24a motor and no head saves it.
QJsonObject analogFile(const QString& type = QStringLiteral("Stepper Analog"),
                       const QString& motor = QStringLiteral("nema24a"),
                       const QString& head = QStringLiteral("None")) {
    const auto input = [](int maxInput, bool filtered) {
        QJsonObject settings{
            {"minDrpm", 0}, {"maxDrpm", 1500}, {"minInput", 0}, {"maxInput", maxInput}};
        if (filtered) {
            settings.insert("filterSampleCount", 16);
        }
        return settings;
    };
    return {{"oemPump", QJsonObject{{"type", type},
                                    {"motor", motor},
                                    {"head", head},
                                    {"accelRpmPerSecond", 150},
                                    {"decelRpmPerSecond", 200},
                                    {"primeSpeed", 1000}}},
            {"analog", QJsonObject{{"controlInput", "Current"},
                                   {"enableLineSpeedDrpm", 800},
                                   {"currentInputSettings", input(20000, true)},
                                   {"voltageInputSettings", input(10000, true)},
                                   {"frequencyInputSettings", input(1000, false)}}}};
}

/// The pump simulator with the application's values on their own thread, and the settings
/// controller on the test thread as on the user-interface thread.
struct Pump {
    explicit Pump(const QStringList& arguments) : link(arguments, SimulatorLink::Values::With) {}

    bool start() {
        QString error;
        if (!link.start(error, SimulatorLink::Session::None)) {
            qWarning("%s", qPrintable(error));
            return false;
        }
        controller = std::make_unique<PumpSettingsController>(link.values());
        return true;
    }

    // Each runs one procedure through the controller and waits for its result, which a file
    // that cannot be read gives at once.
    bool save(const QString& path) {
        QSignalSpy done(controller.get(), &PumpSettingsController::configSaveResultReceived);
        return controller->save(path) && finished(done);
    }
    bool load(const QString& path) {
        QSignalSpy done(controller.get(), &PumpSettingsController::configLoadResultReceived);
        return controller->load(path) && finished(done);
    }
    bool preview(const QString& path) {
        QSignalSpy done(controller.get(), &PumpSettingsController::loadPreviewReady);
        return controller->previewLoad(path) && finished(done);
    }
    static bool finished(QSignalSpy& done) {
        return done.count() == 1 || done.wait(kResultTimeoutMs);
    }
    /// Waits until the pump answers again (after its restart).
    bool answers() {
        auto& details = link.values().get<DeviceDetailsGetAll>();
        SignalCounter answered(&details, &DeviceDetailsGetAll::getAllResponse);
        for (int attempt = 0; attempt < 20; ++attempt) {
            QMetaObject::invokeMethod(&details, [&details] { details.getAll(); });
            if (QTest::qWaitFor([&answered] { return answered.count > 0; }, 300)) {
                return true;
            }
        }
        return false;
    }

    SimulatorLink link;
    std::unique_ptr<PumpSettingsController> controller;
};

} // namespace

// Saving, previewing and loading settings files with the real pump simulator.
class PumpSettingsEndToEndTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { objects::registerProtocolObjectMetaTypes(); }
    void saveThenLoad_fileHasItsLayoutAndLoadsBackIntoThePumpWhichRestarts();
    void load_filesThatDoNotFitThePumpAreRefused_data();
    void load_filesThatDoNotFitThePumpAreRefused();
    void save_pumpThatStopsAnsweringTimesOutAfterFiveSecondsLeavingTheOldFile();
    void load_pumpThatClampsASettingIsReportedAndNotReset();

private:
    QTemporaryDir mFolder;
};

void PumpSettingsEndToEndTest::saveThenLoad_fileHasItsLayoutAndLoadsBackIntoThePumpWhichRestarts() {
    Pump pump({QStringLiteral("--head"), QStringLiteral("5")});
    QVERIFY(pump.start());
    PumpSettingsController& controller = *pump.controller;
    const QString saved = mFolder.filePath(QStringLiteral("saved.json"));
    const QString savedAgain = mFolder.filePath(QStringLiteral("saved-again.json"));

    // As the file dialog gives it, and as a plain path.
    QVERIFY(pump.save(QUrl::fromLocalFile(saved).toString()));
    QVERIFY(controller.configSaveSuccess());
    QCOMPARE(controller.configSaveResult(), QStringLiteral("Success"));
    QVERIFY(pump.save(savedAgain));
    QCOMPARE(readAll(savedAgain), readAll(saved));

    // The layout, key by key, as a reader of the file sees it.
    const QByteArray text = readAll(saved);
    QJsonParseError error{};
    const QJsonObject root = QJsonDocument::fromJson(text, &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(root.keys(), (QStringList{"analog", "oemPump"}));
    const QJsonObject oemPump = root["oemPump"].toObject();
    const QJsonObject analog = root["analog"].toObject();
    QCOMPARE(oemPump.keys(), (QStringList{"accelRpmPerSecond", "decelRpmPerSecond", "head", "motor",
                                          "primeSpeed", "type"}));
    QCOMPARE(analog.keys(),
             (QStringList{"controlInput", "currentInputSettings", "enableLineSpeedDrpm",
                          "frequencyInputSettings", "voltageInputSettings"}));
    const QStringList filtered{"filterSampleCount", "maxDrpm", "maxInput", "minDrpm", "minInput"};
    QCOMPARE(analog["currentInputSettings"].toObject().keys(), filtered);
    QCOMPARE(analog["voltageInputSettings"].toObject().keys(), filtered);
    QCOMPARE(analog["frequencyInputSettings"].toObject().keys(),
             (QStringList{"maxDrpm", "maxInput", "minDrpm", "minInput"}));
    const struct {
        const char* path;
        QJsonValue value; // of the type the file must hold
    } expected[] = {
        {"oemPump/type", "Stepper Analog"},
        {"oemPump/motor", "nema24a"},
        {"oemPump/head", "BW-S25"},
        {"oemPump/accelRpmPerSecond", 100},
        {"oemPump/decelRpmPerSecond", 100},
        {"oemPump/primeSpeed", 2000},
        {"analog/controlInput", "Application"},
        {"analog/enableLineSpeedDrpm", 1000},
        {"analog/currentInputSettings/minDrpm", 0},
        {"analog/currentInputSettings/maxDrpm", 3000},
        {"analog/currentInputSettings/minInput", 4000},
        {"analog/currentInputSettings/maxInput", 20000},
        {"analog/currentInputSettings/filterSampleCount", 16},
        {"analog/voltageInputSettings/maxInput", 10000},
        {"analog/voltageInputSettings/filterSampleCount", 16},
        {"analog/frequencyInputSettings/maxInput", 1000},
    };
    for (const auto& [path, value] : expected) {
        QJsonValue found = root;
        for (const QString& key : QString::fromLatin1(path).split(QLatin1Char('/'))) {
            found = found.toObject().value(key);
        }
        QVERIFY2(found.type() == value.type() && found == value, path);
    }
    // Indented, sorted, and numbers written as integers.
    QVERIFY(text.startsWith("{\n    \"analog\": {\n"));
    QVERIFY(text.indexOf("\"analog\"") < text.indexOf("\"oemPump\""));
    QVERIFY(text.contains("\"primeSpeed\": 2000,\n"));
    QVERIFY(text.contains("\"accelRpmPerSecond\": 100,\n"));

    // Another technician's settings for the same pump.
    QJsonObject edited = with(root, "oemPump/primeSpeed", 1200);
    edited = with(edited, "oemPump/accelRpmPerSecond", 250);
    edited = with(edited, "analog/controlInput", "Voltage");
    edited = with(edited, "analog/voltageInputSettings/maxDrpm", 2500);
    edited = with(edited, "analog/currentInputSettings/filterSampleCount", 32);
    const QString wanted = mFolder.filePath(QStringLiteral("wanted.json"));
    writeObject(wanted, edited);

    QVERIFY(pump.preview(wanted));
    QVERIFY(controller.loadPreviewResult().isEmpty());
    const QVariantList preview = controller.loadPreview();
    QCOMPARE(preview.size(), 22); // every field of the file: 6 + 2 + 5 + 5 + 4
    QCOMPARE(preview.first().toMap().value("setting").toString(), QStringLiteral("Device type"));
    QStringList changed;
    for (const QVariant& row : preview) {
        const QVariantMap map = row.toMap();
        if (map.value("changed").toBool()) {
            changed << map.value("setting").toString();
        }
        if (map.value("setting") == QStringLiteral("Prime speed")) {
            QCOMPARE(map.value("pumpValue").toString(), QStringLiteral("200.0 rpm"));
            QCOMPARE(map.value("fileValue").toString(), QStringLiteral("120.0 rpm"));
        }
    }
    QCOMPARE(changed, (QStringList{"Acceleration", "Prime speed", "Control input",
                                   "Current input: filter samples",
                                   "Voltage input: speed at maximum input"}));

    SignalCounter resets(&pump.link.values().get<PumpReset>(), &PumpValueBase::setSuccess);
    QVERIFY(pump.load(wanted));
    QElapsedTimer sinceResult;
    sinceResult.start();
    QVERIFY(controller.configLoadSuccess());
    QCOMPARE(controller.configLoadResult(), QStringLiteral("Success. Rebooting pump..."));
    QVERIFY(controller.settingsNotApplied().isEmpty());
    QVERIFY(controller.settingsFileBusy());
    QTRY_COMPARE_WITH_TIMEOUT(resets.count, 1, 4000);
    QVERIFY(sinceResult.elapsed() >= 1400);
    QVERIFY(!controller.settingsFileBusy());

    // The restarted pump holds the file's settings.
    QVERIFY(pump.answers());
    const QString afterRestart = mFolder.filePath(QStringLiteral("after-restart.json"));
    QVERIFY(pump.save(afterRestart));
    QVERIFY(controller.configSaveSuccess());
    QCOMPARE(readObject(afterRestart), edited);
}

void PumpSettingsEndToEndTest::load_filesThatDoNotFitThePumpAreRefused_data() {
    QTest::addColumn<QStringList>("simulator");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<bool>("success");
    QTest::addColumn<QString>("result");

    const QJsonObject fitting = analogFile();
    const auto json = [](const QJsonObject& root) { return QJsonDocument(root).toJson(); };
    const QString invalid = QStringLiteral("Invalid file format");

    QTest::newRow("seventh oemPump key")
        << QStringList() << json(with(fitting, "oemPump/serial", "SN-1")) << false << invalid;
    QTest::newRow("nema17 file into a nema17h pump")
        << QStringList{"--motor-type", "9"} << json(with(fitting, "oemPump/motor", "nema17"))
        << false << QStringLiteral("Incompatible pump settings");
    QTest::newRow("device type 1 file into a device type 9 pump")
        << QStringList{"--device-type", "9"} << json(fitting) << true
        << QStringLiteral("Success. Rebooting pump...");
    QTest::newRow("acceleration as text")
        << QStringList() << json(with(fitting, "oemPump/accelRpmPerSecond", "100")) << false
        << invalid;
    QTest::newRow("analog file into a network pump")
        << QStringList{"--variant", "network"} << json(analogFile("Stepper Network")) << false
        << invalid;
    QTest::newRow("root not an object")
        << QStringList() << QByteArray("[\"oemPump\", \"analog\"]") << false << invalid;
    QTest::newRow("file that cannot be opened")
        << QStringList() << QByteArray() << false << QStringLiteral("Could not open file");
}

void PumpSettingsEndToEndTest::load_filesThatDoNotFitThePumpAreRefused() {
    QFETCH(QStringList, simulator);
    QFETCH(QByteArray, contents);
    QFETCH(bool, success);
    QFETCH(QString, result);

    Pump pump(simulator);
    QVERIFY(pump.start());
    QString path = mFolder.filePath(QStringLiteral("refused.json"));
    QFile::remove(path);
    if (contents.isEmpty()) {
        path = mFolder.filePath(QStringLiteral("no-such-file.json"));
    } else {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    QVERIFY(pump.load(path));
    QCOMPARE(pump.controller->configLoadSuccess(), success);
    QCOMPARE(pump.controller->configLoadResult(), result);
}

void PumpSettingsEndToEndTest::
    save_pumpThatStopsAnsweringTimesOutAfterFiveSecondsLeavingTheOldFile() {
    testsupport::LogCapture log;
    // The pump hears nothing the application sends.
    Pump pump({QStringLiteral("--drop-in"), QStringLiteral("1")});
    QVERIFY(pump.start());
    // A file saved earlier, which the failed save must leave as it was.
    const QString path = mFolder.filePath(QStringLiteral("earlier.json"));
    writeObject(path, analogFile());
    const QByteArray earlier = readAll(path);

    QElapsedTimer elapsed;
    elapsed.start();
    QVERIFY(pump.save(path));
    QVERIFY(elapsed.elapsed() >= 5000);
    QVERIFY2(elapsed.elapsed() < 6000, QByteArray::number(elapsed.elapsed()));
    QVERIFY(!pump.controller->configSaveSuccess());
    QCOMPARE(pump.controller->configSaveResult(), QStringLiteral("Pump response timeout"));
    QCOMPARE(log.count(QStringLiteral("OnTimeout: Timed out requesting settings.")), 1);
    QCOMPARE(readAll(path), earlier);
    QCOMPARE(QDir(mFolder.path()).entryList({QStringLiteral("earlier.json*")}),
             QStringList{"earlier.json"});
}

void PumpSettingsEndToEndTest::load_pumpThatClampsASettingIsReportedAndNotReset() {
    testsupport::LogCapture log;
    // The BW-X24 head is rated 1650 drpm; the file asks a prime speed of 2000 drpm.
    Pump pump({QStringLiteral("--motor"), QStringLiteral("bldc"), QStringLiteral("--head"),
               QStringLiteral("24"), QStringLiteral("--clamp-speeds-to-head")});
    QVERIFY(pump.start());
    const QString path = mFolder.filePath(QStringLiteral("too-fast.json"));
    writeObject(path,
                with(analogFile("BLDC Analog", "bldc", "BW-X24"), "oemPump/primeSpeed", 2000));
    SignalCounter resets(&pump.link.values().get<PumpReset>(), &PumpValueBase::setSuccess);

    QVERIFY(pump.load(path));
    QVERIFY(!pump.controller->configLoadSuccess());
    QCOMPARE(pump.controller->configLoadResult(), QStringLiteral("Could not apply all settings"));
    QCOMPARE(pump.controller->settingsNotApplied(), QStringList{"Prime speed"});
    QCOMPARE(log.count(QStringLiteral("Not applied: Prime speed: the file asks 200.0 rpm, the "
                                      "pump holds 165.0 rpm")),
             1);
    // Reported only after the pump, asked once more, still holds its own figure.
    QCOMPARE(log.count(QStringLiteral("reading the pump's settings again to confirm")), 1);
    // A successful load would reset the pump 1.5 s after its result; this one must not.
    QTest::qWait(2000);
    QCOMPARE(resets.count, 0);
    QVERIFY(!pump.controller->settingsFileBusy());
}

QTEST_GUILESS_MAIN(PumpSettingsEndToEndTest)
#include "tst_PumpSettingsEndToEnd.moc"
