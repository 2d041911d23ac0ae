// The log and live fault models on the application's link, on its own thread, against the pump
// simulator: a whole read, and reads that a lossy line cuts short.
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Models/PumpFaultsModel.h"
#include "QtApps/Common/Models/PumpLogModel.h"
#include "tests/support/SignalCounter.h"
#include "tests/support/SimulatorLink.h"

#include <QAbstractItemModelTester>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace communication;
using models::log::PumpLogModel;
using testsupport::SignalCounter;
using testsupport::SimulatorLink;

namespace {

constexpr int kAnswerTimeoutMs = 5000;
// A dozen entries, each tried up to three times 100 to 200 ms apart.
constexpr int kReadTimeoutMs = 20000;

// The rows' texts without their time prefixes, which must all be well formed.
QStringList eventTexts(const PumpLogModel& model) {
    static const QRegularExpression prefix(QStringLiteral("^\\d+h \\d+m \\d+s \\d+ms: "));
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString text = model.index(row).data().toString();
        const auto match = prefix.match(text);
        texts.append(match.hasMatch() ? text.mid(match.capturedLength()) : QStringLiteral("?"));
    }
    return texts;
}

// Sets the fitted head as the screens do; true once the pump acknowledged it.
bool setHead(PumpHead& head, const QString& name) {
    SignalCounter successes(&head, &PumpValueBase::setSuccess);
    SignalCounter aborts(&head, &PumpValueBase::setValueAborted);
    QMetaObject::invokeMethod(
        &head, [&head, name] { head.set(name); }, Qt::QueuedConnection);
    return QTest::qWaitFor([&] { return successes.count + aborts.count > 0; }, kAnswerTimeoutMs) &&
           successes.count > 0;
}

} // namespace

class PumpLogEndToEndTest : public QObject {
    Q_OBJECT

private slots:
    void log_isReadWholeInThePumpsOrder_andFaultsReachTheLiveModel();
    void log_readCutShortByALossyLineShowsTheEntriesReadSoFar();
};

void PumpLogEndToEndTest::log_isReadWholeInThePumpsOrder_andFaultsReachTheLiveModel() {
    SimulatorLink link({}, SimulatorLink::Values::With);
    QString error;
    QVERIFY2(link.start(error), qPrintable(error));
    PumpValues& values = link.values();
    PumpLogModel logModel(values.get<PumpLog>(), nullptr);
    QAbstractItemModelTester logTester(&logModel);
    models::faults::PumpFaultsModel faultsModel(values.get<PumpFaults>(), nullptr);

    QVERIFY(setHead(values.get<PumpHead>(), QStringLiteral("BW-T13")));
    auto& faults = values.get<PumpFaults>();
    QMetaObject::invokeMethod(&faults, [&faults] {
        faults.subscribe();
        faults.set(MotorFaultType::Stall);
    });
    QTRY_VERIFY_WITH_TIMEOUT(faultsModel.index(4).data(1).toBool(), kAnswerTimeoutMs);

    QVERIFY(logModel.getPumpLog());
    QTRY_VERIFY_WITH_TIMEOUT(logModel.rowCount() > 0, kAnswerTimeoutMs);
    const QStringList texts = eventTexts(logModel);
    QCOMPARE(texts.first(), QStringLiteral("Power on, firmware 1.16.1"));
    QCOMPARE(texts.mid(texts.size() - 3),
             (QStringList{QStringLiteral("Session started"), QStringLiteral("Pump head: BW-T13"),
                          QStringLiteral("Fault: Stall")}));
}

void PumpLogEndToEndTest::log_readCutShortByALossyLineShowsTheEntriesReadSoFar() {
    // Half the requests to the pump are lost, and no session runs, so only this test's requests
    // travel. A lost request never reaches the pump: its log holds the power-on entry and one
    // entry per acknowledged head set, nothing else.
    SimulatorLink link({QStringLiteral("--drop-in"), QStringLiteral("0.5"),
                        QStringLiteral("--seed"), QStringLiteral("20250314")},
                       SimulatorLink::Values::With);
    QString error;
    QVERIFY2(link.start(error, SimulatorLink::Session::None), qPrintable(error));
    PumpValues& values = link.values();
    QStringList pumpLog{QStringLiteral("Power on, firmware 1.16.1")};
    for (const char* head : {"BW-S10", "BW-T14", "BW-M06x4", "BW-S25HP", "BW-S10", "BW-T14",
                             "BW-M06x4", "BW-S25HP", "BW-S10", "BW-T14", "BW-M06x4", "BW-X24"}) {
        if (setHead(values.get<PumpHead>(), QString::fromLatin1(head))) {
            pumpLog.append(QStringLiteral("Pump head: ") + QString::fromLatin1(head));
        }
    }

    auto& log = values.get<PumpLog>();
    PumpLogModel model(log, nullptr);
    QAbstractItemModelTester tester(&model);
    QSignalSpy shownReads(&model, &PumpLogModel::rowsInserted);
    SignalCounter firstFailures(log.findChild<PumpLogFirstEntry*>(),
                                &PumpValueBase::getValueAborted);
    SignalCounter nextFailures(log.findChild<PumpLogNextEntry*>(), &PumpValueBase::getValueAborted);

    // An entry fails one time in eight (three lost requests in a row): read until a read fails
    // after its first entry and before the end of the log.
    bool cutShort = false;
    for (int attempt = 0; attempt < 40 && !cutShort; ++attempt) {
        const auto shownBefore = shownReads.count();
        const int firstFailedBefore = firstFailures.count;
        const int nextFailedBefore = nextFailures.count;
        QVERIFY(model.getPumpLog());
        QTRY_VERIFY_WITH_TIMEOUT(shownReads.count() > shownBefore ||
                                     firstFailures.count > firstFailedBefore,
                                 kReadTimeoutMs);
        QCoreApplication::sendPostedEvents(); // the counters hear of a failure after the model
        if (shownReads.count() == shownBefore) {
            continue; // the first entry failed: the read stops, the rows stay
        }
        const QStringList shown = eventTexts(model);
        if (nextFailures.count > nextFailedBefore) {
            QCOMPARE(shown, pumpLog.mid(0, shown.size()));
            cutShort = shown.size() < pumpLog.size();
        } else {
            QCOMPARE(shown, pumpLog);
        }
    }
    QVERIFY2(cutShort, "no read was cut short");
}

QTEST_GUILESS_MAIN(PumpLogEndToEndTest)
#include "tst_PumpLogEndToEnd.moc"
