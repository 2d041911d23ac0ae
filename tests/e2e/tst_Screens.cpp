// The application end to end through its screens, against the pump simulator: what a
// technician clicks and types, what the screens then show, and what the pump then does.
#include "QtApps/Common/Model/PumpSettings/SettingsBackup.h"
#include "tests/support/ScreenDriver.h"

#include <QDir>
#include <QFile>
#include <QQuickItem>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using testsupport::ScreenDriver;

namespace {

QString text(ScreenDriver& app, const QString& objectName) {
    QQuickItem* item = app.find(objectName);
    return item != nullptr ? item->property("text").toString() : QString();
}

// The value column of a status row.
QString reading(ScreenDriver& app, const QString& row) {
    QQuickItem* item = app.find(row);
    if (item == nullptr) {
        return {};
    }
    QQuickItem* value = item->findChild<QQuickItem*>(QStringLiteral("value"));
    return value != nullptr ? value->property("text").toString() : QString();
}

// The simulator's actual speed, from its "status" answer ("speed N drpm (target M)").
int simulatorSpeed(ScreenDriver& app) {
    static const QRegularExpression speed(QStringLiteral("speed (-?\\d+) drpm"));
    for (const QString& line : app.simulator(QStringLiteral("status"))) {
        const auto match = speed.match(line);
        if (match.hasMatch()) {
            return match.captured(1).toInt();
        }
    }
    return INT32_MIN;
}

// One line of the simulator's "settings" answer that contains `key`.
QString simulatorSetting(ScreenDriver& app, const QString& key) {
    for (const QString& line : app.simulator(QStringLiteral("settings"))) {
        if (line.contains(key)) {
            return line;
        }
    }
    return {};
}

// Calls a function of a screen item written in QML, as its own buttons and dialogs do.
QVariant call(ScreenDriver& app, const QString& objectName, const char* function,
              const QVariant& argument) {
    QVariant result;
    QQuickItem* item = app.find(objectName);
    if (item != nullptr) {
        QMetaObject::invokeMethod(item, function, Q_RETURN_ARG(QVariant, result),
                                  Q_ARG(QVariant, argument));
    }
    return result;
}

} // namespace

class ScreensTest : public QObject {
    Q_OBJECT

private slots:
    void fixedSpeed_runsThePumpAndTheStatusFollows();
    void controlInput_andFaults_reachThePumpAndComeBack();
    void initTestCase();
    void versionMismatch_theDemoBundleUpdatesThePumpAndItsSettingsComeBack();
    void setup_slowerHeadAsksFirst_andARefusedFigureSendsNothing();
    void maintenance_settingsFileRoundTripThroughThePreview();
    void maintenance_logIsReadExportedAndCleared();
};

void ScreensTest::fixedSpeed_runsThePumpAndTheStatusFollows() {
    ScreenDriver app;
    QString error;
    QVERIFY2(app.start(error), qPrintable(error));
    QVERIFY(app.waitForMainScreen());
    QCOMPARE(app.find(QStringLiteral("tabs"))->property("currentIndex").toInt(), 0);
    QTRY_VERIFY(app.find(QStringLiteral("fixedSpeedPanel")) != nullptr);

    // A value past the pump's maximum is refused beside the field, and nothing moves.
    QVERIFY(app.type(QStringLiteral("applicationSpeedInput"), QStringLiteral("9999")));
    QVERIFY(text(app, QStringLiteral("quantityMessage")).contains(QStringLiteral("between")));
    QVERIFY(app.type(QStringLiteral("applicationSpeedInput"), QStringLiteral("120,5")));
    QTRY_COMPARE_WITH_TIMEOUT(simulatorSpeed(app), 1205, 8000);
    QTRY_COMPARE_WITH_TIMEOUT(text(app, QStringLiteral("speedFigure")), QStringLiteral("120.5 RPM"),
                              3000);

    QVERIFY(app.click(QStringLiteral("anticlockwiseButton")));
    QTRY_COMPARE_WITH_TIMEOUT(simulatorSpeed(app), -1205, 15000);
    QTRY_COMPARE_WITH_TIMEOUT(reading(app, QStringLiteral("directionRow")),
                              QStringLiteral("Counter-clockwise"), 3000);
    QCOMPARE(text(app, QStringLiteral("speedFigure")), QStringLiteral("120.5 RPM"));
}

void ScreensTest::controlInput_andFaults_reachThePumpAndComeBack() {
    ScreenDriver app;
    QString error;
    QVERIFY2(app.start(error), qPrintable(error));
    QVERIFY(app.waitForMainScreen());
    app.simulator(QStringLiteral("input voltage 6500"));

    // The chooser shows what the pump holds: the voltage panel appears once it has taken it.
    QVERIFY(app.click(QStringLiteral("controlInputChooser")));
    QTRY_VERIFY(app.find(QStringLiteral("option_Voltage")) != nullptr);
    QVERIFY(app.click(QStringLiteral("option_Voltage")));
    QTRY_VERIFY_WITH_TIMEOUT(app.find(QStringLiteral("voltageRangePanel")) != nullptr, 3000);
    QTRY_COMPARE_WITH_TIMEOUT(reading(app, QStringLiteral("controlRow")), QStringLiteral("6.5 V"),
                              3000);

    app.simulator(QStringLiteral("fault 5"));
    QTRY_VERIFY_WITH_TIMEOUT(app.find(QStringLiteral("fault_Stall")) != nullptr, 3000);
    QVERIFY(app.find(QStringLiteral("clearFaultsButton")) != nullptr);
    QCOMPARE(app.find(QStringLiteral("sidePanel"))->property("state").toString(),
             QStringLiteral("error"));
    QVERIFY(app.click(QStringLiteral("clearFaultsButton")));
    QTRY_VERIFY_WITH_TIMEOUT(app.find(QStringLiteral("clearFaultsButton")) == nullptr, 3000);
    QVERIFY(app.find(QStringLiteral("fault_Stall")) == nullptr);
    QCOMPARE(text(app, QStringLiteral("snackbar")), QStringLiteral("Faults Cleared"));
}

void ScreensTest::initTestCase() {
    // Settings backups go to a test folder, not the user's.
    QStandardPaths::setTestModeEnabled(true);
}

void ScreensTest::versionMismatch_theDemoBundleUpdatesThePumpAndItsSettingsComeBack() {
    ScreenDriver app({QStringLiteral("--firmware-version"), QStringLiteral("1.15.0"),
                      QStringLiteral("--firmware-resets-settings")});
    QString error;
    QVERIFY2(app.start(error), qPrintable(error));
    QVERIFY(app.waitForMainScreen());
    QDir backupFolder(pumpSettings::SettingsBackup::backupFolder());
    backupFolder.removeRecursively();
    QTRY_COMPARE_WITH_TIMEOUT(app.find(QStringLiteral("tabs"))->property("currentIndex").toInt(), 2,
                              3000);
    QVERIFY(app.find(QStringLiteral("warningCircle")) != nullptr);
    QVERIFY(app.find(QStringLiteral("versionMismatch")) != nullptr);

    // A setting this firmware forgets.
    QVERIFY(app.click(QStringLiteral("tab1")));
    QVERIFY(app.type(QStringLiteral("primeSpeedInput"), QStringLiteral("150")));
    QTRY_VERIFY_WITH_TIMEOUT(simulatorSetting(app, QStringLiteral("prime speed"))
                                 .endsWith(QStringLiteral("prime speed 1500 drpm")),
                             3000);

    QVERIFY(app.click(QStringLiteral("tab2")));
    call(app, QStringLiteral("firmwarePanel"), "choose",
         QUrl::fromLocalFile(QStringLiteral(DEMO_BUNDLE_PATH)));
    QTRY_VERIFY_WITH_TIMEOUT(
        text(app, QStringLiteral("bundleSummary")).contains(QStringLiteral("BWD-100-SIM (1)")),
        3000);
    QVERIFY(app.click(QStringLiteral("applyFirmwareButton")));

    // Back with the new firmware: the settings were saved first, and are offered back.
    QTRY_VERIFY_WITH_TIMEOUT(
        text(app, QStringLiteral("overlayMessage")).contains(QStringLiteral("firmware V1.16.1")),
        60000);
    const QStringList backups = backupFolder.entryList({QStringLiteral("SIM-000001_*.json")});
    QCOMPARE(backups.size(), 1);
    QVERIFY(text(app, QStringLiteral("overlayMessage")).contains(backups.front()));
    QVERIFY(simulatorSetting(app, QStringLiteral("prime speed"))
                .endsWith(QStringLiteral("prime speed 2000 drpm")));
    QVERIFY(app.click(QStringLiteral("overlayConfirm")));
    QTRY_VERIFY_WITH_TIMEOUT(simulatorSetting(app, QStringLiteral("prime speed"))
                                 .endsWith(QStringLiteral("prime speed 1500 drpm")),
                             8000);
    QVERIFY(app.waitForMainScreen(15000)); // the pump restarts to take the settings
    QVERIFY(app.find(QStringLiteral("warningCircle")) == nullptr);
    QVERIFY(app.find(QStringLiteral("overlayMessage")) == nullptr);
}

void ScreensTest::setup_slowerHeadAsksFirst_andARefusedFigureSendsNothing() {
    // A BLDC drive offers heads rated below the 300 RPM its speeds are set to.
    ScreenDriver app({QStringLiteral("--motor"), QStringLiteral("bldc")});
    QString error;
    QVERIFY2(app.start(error), qPrintable(error));
    QVERIFY(app.waitForMainScreen());
    QVERIFY(app.click(QStringLiteral("tab1")));

    // The list fills once the pump has sent its heads.
    QTRY_VERIFY(app.find(QStringLiteral("pumpHeadChooser"))->property("count").toInt() > 0);
    ScreenDriver::wait(300);
    QVERIFY(app.click(QStringLiteral("pumpHeadChooser")));
    QTRY_VERIFY(app.find(QStringLiteral("option_BW-X24")) != nullptr);
    QVERIFY(app.click(QStringLiteral("option_BW-X24")));
    QTRY_VERIFY(app.find(QStringLiteral("overlayMessage")) != nullptr);
    QCOMPARE(text(app, QStringLiteral("overlayMessage")),
             QStringLiteral("The maximum speed of this pump head is 165.0 RPM, all speed settings "
                            "greater than this will be reduced."));
    QCOMPARE(text(app, QStringLiteral("overlayConfirm")), QStringLiteral("Continue"));
    QVERIFY(app.click(QStringLiteral("overlayCancel")));
    QVERIFY(simulatorSetting(app, QStringLiteral("head")).endsWith(QStringLiteral("head None")));

    QTRY_COMPARE(app.find(QStringLiteral("accelerationInput"))->property("value").toDouble(),
                 100.0);
    QVERIFY(app.type(QStringLiteral("accelerationInput"), QStringLiteral("5000")));
    QCOMPARE(text(app, QStringLiteral("quantityMessage")),
             QStringLiteral("Acceleration must be within min/max"));
    QVERIFY(simulatorSetting(app, QStringLiteral("acceleration"))
                .startsWith(QStringLiteral("acceleration 100 rpm/s")));
    QVERIFY(app.type(QStringLiteral("accelerationInput"), QStringLiteral("250")));
    QTRY_VERIFY_WITH_TIMEOUT(simulatorSetting(app, QStringLiteral("acceleration"))
                                 .startsWith(QStringLiteral("acceleration 250 rpm/s")),
                             3000);
}

void ScreensTest::maintenance_settingsFileRoundTripThroughThePreview() {
    ScreenDriver app;
    QString error;
    QVERIFY2(app.start(error), qPrintable(error));
    QVERIFY(app.waitForMainScreen());
    QTemporaryDir folder;
    const QUrl file = QUrl::fromLocalFile(folder.filePath(QStringLiteral("pump.json")));

    QVERIFY(app.click(QStringLiteral("tab2")));
    call(app, QStringLiteral("configurationPanel"), "saveTo", file);
    QTRY_COMPARE_WITH_TIMEOUT(text(app, QStringLiteral("configurationResult")),
                              QStringLiteral("Success"), 6000);

    // What a technician changes on the pump next...
    QVERIFY(app.click(QStringLiteral("tab1")));
    QVERIFY(app.type(QStringLiteral("primeSpeedInput"), QStringLiteral("150")));
    QTRY_VERIFY_WITH_TIMEOUT(simulatorSetting(app, QStringLiteral("prime speed"))
                                 .endsWith(QStringLiteral("prime speed 1500 drpm")),
                             3000);

    // ...and the file brings back: the preview lists the prime speed, the load restores it.
    QVERIFY(app.click(QStringLiteral("tab2")));
    call(app, QStringLiteral("configurationPanel"), "previewFrom", file);
    QTRY_VERIFY_WITH_TIMEOUT(app.find(QStringLiteral("overlayConfirm")) != nullptr, 6000);
    QQuickItem* prime = app.find(QStringLiteral("preview_Prime speed"));
    QVERIFY(prime != nullptr);
    QVERIFY(prime->property("changed").toBool());
    QVERIFY(app.click(QStringLiteral("overlayConfirm")));
    QTRY_VERIFY_WITH_TIMEOUT(simulatorSetting(app, QStringLiteral("prime speed"))
                                 .endsWith(QStringLiteral("prime speed 2000 drpm")),
                             8000);
    QVERIFY(app.waitForMainScreen(15000)); // the pump restarts to take the file
}

void ScreensTest::maintenance_logIsReadExportedAndCleared() {
    ScreenDriver app;
    QString error;
    QVERIFY2(app.start(error), qPrintable(error));
    QVERIFY(app.waitForMainScreen());
    QVERIFY(app.click(QStringLiteral("tab2")));
    QQuickItem* list = app.find(QStringLiteral("logList"));
    QVERIFY(list != nullptr);
    QTRY_VERIFY_WITH_TIMEOUT(list->property("count").toInt() >= 2, 5000);

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("log.log"));
    QQuickItem* tab = app.find(QStringLiteral("maintenanceTab"));
    QVariant exported;
    QMetaObject::invokeMethod(tab, "exportLogTo", Q_RETURN_ARG(QVariant, exported),
                              Q_ARG(QVariant, path));
    QVERIFY(exported.toBool());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    QCOMPARE(lines.at(0), QStringLiteral("\"Pump serial number\",SIM-000001"));
    QVERIFY(lines.at(3).contains(QStringLiteral(",\" Power on")));

    QVERIFY(app.click(QStringLiteral("clearLogButton")));
    QTRY_VERIFY(app.find(QStringLiteral("overlayConfirm")) != nullptr);
    QCOMPARE(text(app, QStringLiteral("overlayMessage")),
             QStringLiteral("The log will be permanently deleted from the pump memory."));
    QVERIFY(app.click(QStringLiteral("overlayConfirm")));
    QTRY_VERIFY_WITH_TIMEOUT(list->property("count").toInt() <= 2, 5000);
    QTRY_VERIFY_WITH_TIMEOUT(app.simulator(QStringLiteral("log")).size() <= 2, 3000);
}

QTEST_MAIN(ScreensTest)
#include "tst_Screens.moc"
