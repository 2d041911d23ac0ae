#include "ValuesLink.h"

#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>

using namespace communication;

class PumpValuesTest : public QObject {
    Q_OBJECT

private slots:
    void values_moveWithTheCommsObjectAndAnswerQueuedCalls();
};

void PumpValuesTest::values_moveWithTheCommsObjectAndAnswerQueuedCalls() {
    ValuesLink link;
    ValuesComms comms(link);
    auto* values = new PumpValues(comms);
    QCOMPARE(values->parent(), &comms);
    QCOMPARE(values->get<PumpPrimeSpeed>().parent(), values);
    QCOMPARE(values->get<PumpTorqueIndex>().pumpReset().parent(), &values->get<PumpTorqueIndex>());

    // The comms object takes the values along to its thread; the proxies stay behind here so
    // that the test can drive them, and calls reach the values queued, as from the screens.
    QThread* const testThread = QThread::currentThread();
    QThread thread;
    thread.start();
    comms.moveToThread(&thread);
    QCOMPARE(values->get<PumpApplicationSpeed>().thread(), &thread);
    QCOMPARE(values->get<PumpLog>().children().first()->thread(), &thread);

    PumpFaults& faults = values->get<PumpFaults>();
    QSignalSpy changes(&faults, &PumpFaults::faultsChanged);
    QMetaObject::invokeMethod(&faults, [&faults] { faults.onUpdateFaults(0x2); });
    QTRY_COMPARE(changes.count(), 1);
    QVERIFY(changes.at(0).at(0).value<QList<PumpFaults::FaultStatus>>().at(0).active);

    QMetaObject::invokeMethod(&comms, [&comms, testThread] { comms.moveToThread(testThread); });
    QTRY_COMPARE(values->thread(), testThread);
    thread.quit();
    thread.wait();
}

QTEST_GUILESS_MAIN(PumpValuesTest)
#include "tst_PumpValues.moc"
