// The application end to end through its screens, against the pump simulator: what a
// technician clicks and types, what the screens then show, and what the pump then does.
#include "tests/support/ScreenDriver.h"

#include <QQuickItem>
#include <QRegularExpression>
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

} // namespace

class ScreensTest : public QObject {
    Q_OBJECT

private slots:
    void fixedSpeed_runsThePumpAndTheStatusFollows();
    void controlInput_andFaults_reachThePumpAndComeBack();
    void versionMismatch_opensOnMaintenanceWithItsWarning();
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

void ScreensTest::versionMismatch_opensOnMaintenanceWithItsWarning() {
    ScreenDriver app({QStringLiteral("--firmware-version"), QStringLiteral("1.15.0")});
    QString error;
    QVERIFY2(app.start(error), qPrintable(error));
    QVERIFY(app.waitForMainScreen());
    QTRY_COMPARE_WITH_TIMEOUT(app.find(QStringLiteral("tabs"))->property("currentIndex").toInt(), 2,
                              3000);
    QVERIFY(app.find(QStringLiteral("warningCircle")) != nullptr);
    QVERIFY(app.find(QStringLiteral("versionMismatch")) != nullptr);
}

QTEST_MAIN(ScreensTest)
#include "tst_Screens.moc"
