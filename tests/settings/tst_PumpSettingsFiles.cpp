#include "tests/controllers/ControllerRig.h"

#include "QtApps/Common/Controllers/PumpSettingsController.h"
#include "QtApps/Common/Model/PumpSettings/SettingsBackup.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>

using communication::PumpSettingsController;

namespace {

constexpr int kResultTimeoutMs = 3000;

enum class Target { Contents, Folder, Missing, Huge };

// A file that fits the rig's pump: a stepper analog pump with a nema24a motor and the BW-S16
// head (or, with `network`, the same pump with a network module).
QJsonObject fittingFile(bool network) {
    const QJsonObject oemPump{{"type", "Stepper Analog"}, {"motor", "nema24a"},
                              {"head", "BW-S16"},         {"accelRpmPerSecond", 100},
                              {"decelRpmPerSecond", 120}, {"primeSpeed", 2000}};
    if (network) {
        return {{"oemPump", oemPump},
                {"network", QJsonObject{{"ipAddress", "192.168.0.10"},
                                        {"subnetMask", "255.255.255.0"},
                                        {"gatewayAddress", "192.168.0.1"},
                                        {"dhcp", false}}}};
    }
    const auto input = [](int maxInput, bool filtered) {
        QJsonObject settings{
            {"minDrpm", 0}, {"maxDrpm", 3000}, {"minInput", 0}, {"maxInput", maxInput}};
        if (filtered) {
            settings.insert("filterSampleCount", 16);
        }
        return settings;
    };
    return {{"oemPump", oemPump},
            {"analog", QJsonObject{{"controlInput", "Voltage"},
                                   {"enableLineSpeedDrpm", 1000},
                                   {"currentInputSettings", input(20000, true)},
                                   {"voltageInputSettings", input(10000, true)},
                                   {"frequencyInputSettings", input(1000, false)}}}};
}

QByteArray bytesOf(const QJsonObject& root) {
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

// The fitting file with the value at `path` ("analog/currentInputSettings/maxDrpm") replaced,
// or removed when `value` is undefined.
QByteArray changed(bool network, const QString& path, const QJsonValue& value) {
    const QStringList keys = path.split(QLatin1Char('/'));
    const std::function<QJsonObject(QJsonObject, int)> edit = [&](QJsonObject object, int depth) {
        const QString& key = keys.at(depth);
        if (depth + 1 < keys.size()) {
            object.insert(key, edit(object.value(key).toObject(), depth + 1));
        } else if (value.isUndefined()) {
            object.remove(key);
        } else {
            object.insert(key, value);
        }
        return object;
    };
    return bytesOf(edit(fittingFile(network), 0));
}

QByteArray analog(const QString& path, const QJsonValue& value) {
    return changed(false, path, value);
}

} // namespace

Q_DECLARE_METATYPE(Target)

// Settings files that must be refused, on the real values and proxies with the line a recorder.
// The pump is only identified; whatever the file holds, the pump never sees more than the
// request of its details.
class PumpSettingsFilesTest : public QObject {
    Q_OBJECT

private slots:
    void load_badFilesAreRefusedWithoutTouchingThePump_data();
    void load_badFilesAreRefusedWithoutTouchingThePump();
    void load_fittingFileGoesOnToReadThePump_data();
    void load_fittingFileGoesOnToReadThePump();
    void save_unwritableTargetFailsBeforeAskingThePump();
    void backupPath_isTheSerialAndTimeInTheDataFolder_data();
    void backupPath_isTheSerialAndTimeInTheDataFolder();
};

void PumpSettingsFilesTest::load_badFilesAreRefusedWithoutTouchingThePump_data() {
    QTest::addColumn<Target>("target");
    QTest::addColumn<bool>("network");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("result");

    const QString invalid = QStringLiteral("Invalid file format");
    const QString incompatible = QStringLiteral("Incompatible pump settings");
    const QString cannotOpen = QStringLiteral("Could not open file");
    const QByteArray whole = bytesOf(fittingFile(false));
    const auto row = [](const char* name, const QByteArray& contents, const QString& result,
                        bool network = false, Target target = Target::Contents) {
        QTest::newRow(name) << target << network << contents << result;
    };

    // Not a settings document at all.
    row("truncated JSON", whole.left(whole.size() / 2), invalid);
    row("empty file", QByteArray(), invalid);
    row("root is an array", "[{\"oemPump\": {}}]", invalid);
    row("root is a string", "\"oemPump\"", invalid);
    row("not UTF-8 text", QByteArray("\xff\xfe{\x00\"\x00", 6), invalid);
    row("100 MB file", QByteArray(), invalid, false, Target::Huge);
    row("a folder", QByteArray(), cannotOpen, false, Target::Folder);
    row("no such file", QByteArray(), cannotOpen, false, Target::Missing);
    // Sections missing, or of the wrong shape.
    row("no oemPump section", analog("oemPump", QJsonValue::Undefined), invalid);
    row("no analog section", analog("analog", QJsonValue::Undefined), invalid);
    row("analog section is an array", analog("analog", QJsonArray{1, 2}), invalid);
    row("analog file into a network pump", whole, invalid, true);
    row("seventh oemPump key", analog("oemPump/serial", "SN-42"), invalid);
    row("oemPump key missing", analog("oemPump/decelRpmPerSecond", QJsonValue::Undefined), invalid);
    row("input settings with an extra key", analog("analog/voltageInputSettings/gain", 2), invalid);
    row("frequency settings with a sample count",
        analog("analog/frequencyInputSettings/filterSampleCount", 8), invalid);
    row("current settings without their sample count",
        analog("analog/currentInputSettings/filterSampleCount", QJsonValue::Undefined), invalid);
    row("input settings not an object", analog("analog/currentInputSettings", 4000), invalid);
    // Values of the wrong type, or that the pump's field cannot hold.
    row("acceleration as text", analog("oemPump/accelRpmPerSecond", "100"), invalid);
    row("acceleration as boolean", analog("oemPump/accelRpmPerSecond", true), invalid);
    row("acceleration null", analog("oemPump/accelRpmPerSecond", QJsonValue::Null), invalid);
    row("acceleration past a float's whole numbers", analog("oemPump/accelRpmPerSecond", 16777217),
        invalid);
    row("prime speed a fraction", analog("oemPump/primeSpeed", 1500.5), invalid);
    row("prime speed negative", analog("oemPump/primeSpeed", -1), invalid);
    row("prime speed past 32 bits", analog("oemPump/primeSpeed", 4294967296.0), invalid);
    row("sample count past 32 bits", analog("analog/voltageInputSettings/filterSampleCount", 1e12),
        invalid);
    row("speed as an object", analog("analog/enableLineSpeedDrpm", QJsonObject{{"v", 1}}), invalid);
    row("control input only begins a known text", analog("analog/controlInput", "Volt"), invalid);
    row("control input as its number", analog("analog/controlInput", 2), invalid);
    row("type as a number", analog("oemPump/type", 1), invalid);
    row("dhcp as text", changed(true, "network/dhcp", "false"), invalid, true);
    row("address past 255", changed(true, "network/ipAddress", "192.168.0.256"), invalid, true);
    row("address of three parts", changed(true, "network/gatewayAddress", "10.0.1"), invalid, true);
    row("address with a trailing newline", changed(true, "network/subnetMask", "255.0.0.0\n"),
        invalid, true);
    // A well-formed file for another kind of pump.
    row("type of another pump", analog("oemPump/type", "BLDC Analog"), incompatible);
    row("motor of another pump", analog("oemPump/motor", "nema17"), incompatible);
    row("head in other letters", analog("oemPump/head", "bw-s16"), incompatible);
}

void PumpSettingsFilesTest::load_badFilesAreRefusedWithoutTouchingThePump() {
    QFETCH(Target, target);
    QFETCH(bool, network);
    QFETCH(QByteArray, contents);
    QFETCH(QString, result);

    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QString path = folder.filePath(QStringLiteral("settings.json"));
    if (target == Target::Folder) {
        path = folder.path();
    } else if (target == Target::Missing) {
        path = folder.filePath(QStringLiteral("missing.json"));
    } else {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(contents), contents.size());
        // A sparse file: 100 MB on the disk's books, next to nothing written.
        if (target == Target::Huge) {
            QVERIFY(file.resize(100LL * 1024 * 1024));
        }
    }

    ControllerRig rig;
    PumpSettingsController controller(rig.values);
    QSignalSpy results(&controller, &PumpSettingsController::configLoadResultReceived);
    QVERIFY(controller.load(QUrl::fromLocalFile(path).toString()));
    rig.identifyPump(network);
    QTRY_COMPARE_WITH_TIMEOUT(results.count(), 1, kResultTimeoutMs);
    QCOMPARE(controller.configLoadResult(), result);
    QVERIFY(!controller.configLoadSuccess());
    QVERIFY(!controller.settingsFileBusy());
    QVERIFY(controller.settingsNotApplied().isEmpty());
    // Nothing went to the pump but the request of its details (and their description).
    for (const auto& request : rig.link.sent()) {
        QCOMPARE(request.object, uint8_t(1));
        QCOMPARE(request.instance, uint8_t(2));
        QVERIFY(request.operation == ControllerRig::Operation::GetAll ||
                request.operation == ControllerRig::Operation::Get);
    }
    // And the file is as it was.
    if (target == Target::Contents) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), contents);
    }
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("missing.json"))));
}

void PumpSettingsFilesTest::load_fittingFileGoesOnToReadThePump_data() {
    QTest::addColumn<bool>("network");
    QTest::newRow("analog") << false;
    QTest::newRow("network") << true;
}

// The other side of the rows above: the file they spoil passes every check, and the load goes on
// to read the pump's present values (Gets only).
void PumpSettingsFilesTest::load_fittingFileGoesOnToReadThePump() {
    QFETCH(bool, network);
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    const QString path = folder.filePath(QStringLiteral("settings.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytesOf(fittingFile(network)));
    file.close();

    ControllerRig rig;
    PumpSettingsController controller(rig.values);
    QSignalSpy results(&controller, &PumpSettingsController::configLoadResultReceived);
    QVERIFY(controller.load(path));
    rig.identifyPump(network);
    // The prime speed (prime object 2/2, attribute 3) is read, and the IP configuration (network
    // object 6/1, attribute 4) only on a network pump.
    QTRY_COMPARE(rig.countSent(2, 2, 3, ControllerRig::Operation::Get), 1);
    QCOMPARE(rig.countSent(6, 1, 4, ControllerRig::Operation::Get), network ? 1 : 0);
    QCOMPARE(rig.countSent(ControllerRig::Operation::Set), 0);
    QCOMPARE(results.count(), 0);
    // One at a time.
    QVERIFY(controller.settingsFileBusy());
    QVERIFY(!controller.previewLoad(path));
    QVERIFY(!controller.save(folder.filePath(QStringLiteral("other.json"))));
    QVERIFY(!controller.load(path));
}

void PumpSettingsFilesTest::save_unwritableTargetFailsBeforeAskingThePump() {
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    ControllerRig rig;
    PumpSettingsController controller(rig.values);
    QSignalSpy results(&controller, &PumpSettingsController::configSaveResultReceived);

    for (const QString& path :
         {folder.filePath(QStringLiteral("no-such-folder/pump.json")), folder.path()}) {
        results.clear();
        QVERIFY(controller.save(path));
        QTRY_COMPARE_WITH_TIMEOUT(results.count(), 1, kResultTimeoutMs);
        QCOMPARE(controller.configSaveResult(), QStringLiteral("Could not open file"));
        QVERIFY(!controller.configSaveSuccess());
    }
    ControllerRig::settle();
    QCOMPARE(rig.link.sentCount(), 0);
    QCOMPARE(QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList());
}

void PumpSettingsFilesTest::backupPath_isTheSerialAndTimeInTheDataFolder_data() {
    QTest::addColumn<QString>("serial");
    QTest::addColumn<QString>("fileName");
    QTest::newRow("plain") << "AB1234"
                           << "AB1234_250314_093005.json";
    QTest::newRow("unsafe characters") << "../A B:7/\\x"
                                       << ".._A_B_7__x_250314_093005.json";
    QTest::newRow("no serial") << " "
                               << "pump_250314_093005.json";
}

void PumpSettingsFilesTest::backupPath_isTheSerialAndTimeInTheDataFolder() {
    QFETCH(QString, serial);
    QFETCH(QString, fileName);
    const QDateTime time(QDate(2025, 3, 14), QTime(9, 30, 5));
    const QString path = pumpSettings::SettingsBackup::backupPath(serial, time);
    QCOMPARE(path, QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                       QStringLiteral("/backups/") + fileName);
}

QTEST_GUILESS_MAIN(PumpSettingsFilesTest)
#include "tst_PumpSettingsFiles.moc"
