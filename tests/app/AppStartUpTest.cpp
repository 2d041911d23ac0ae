// The window follows the pump session: start-up pages, the main screen, a lost pump, closing.
#include "QtApps/Common/Core/Communication/MetaTypes.h"
#include "QtApps/Common/Instantiation/ApplicationCore.h"
#include "tests/support/PumpLine.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTest>

using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Operation;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;
using testsupport::PumpLine;

class AppStartUpTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QCoreApplication::setApplicationName(QStringLiteral("Brackwater Link"));
        QCoreApplication::setApplicationVersion(QStringLiteral("1.16.1"));
        communication::RegisterMetaTypes();
    }

    void windowFollowsTheSession_andClosingStopsItFirst() {
        PumpLine pump;
        bool answering = false;
        pump.setResponder([&answering](PumpLine& line, const ProtocolMessage& request) {
            if (!answering) {
                return;
            }
            const QByteArray payload =
                request.attribute == 1 ? QByteArray::fromHex("010000") : QByteArray();
            line.send(PumpLine::answer(request, Type::AckStatus, Status::Success, payload));
        });

        common::ApplicationCore core(*qApp, {pump.portName()});
        QQmlApplicationEngine engine;
        engine.addImportPath(QStringLiteral("qrc:/"));
        engine.load(QUrl(QStringLiteral("qrc:/BwUI/main.qml")));
        QCOMPARE(engine.rootObjects().size(), 1);
        auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().front());
        QVERIFY(window != nullptr);
        QCOMPARE(window->minimumWidth(), 960);
        QCOMPARE(window->minimumHeight(), 540);
        QObject* startUp = window->findChild<QObject*>(QStringLiteral("startUp"));
        QVERIFY(startUp != nullptr);
        const auto page = [startUp] { return startUp->property("currentPage").toString(); };

        QCOMPARE(page(), QStringLiteral("blankPage"));
        QTRY_COMPARE(page(), QStringLiteral("connectingPage"));

        answering = true;
        QTRY_COMPARE(page(), QStringLiteral("connectedPage"));
        QTRY_COMPARE(page(), QStringLiteral("mainScreen"));

        // A pump that falls silent brings the connecting pages back; its return, the main screen.
        answering = false;
        QTRY_COMPARE_WITH_TIMEOUT(page(), QStringLiteral("blankPage"), 4000);
        answering = true;
        QTRY_COMPARE_WITH_TIMEOUT(page(), QStringLiteral("mainScreen"), 4000);

        const int stopsBefore = pump.countRequests(0, 0, 3, Operation::Set);
        QCOMPARE(stopsBefore, 0);
        window->close();
        QTRY_COMPARE(pump.countRequests(0, 0, 3, Operation::Set), 1);
        QTRY_VERIFY(!window->isVisible());
    }
};

QTEST_MAIN(AppStartUpTest)
#include "AppStartUpTest.moc"
