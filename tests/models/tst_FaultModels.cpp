// The fault models on the real pump value and proxy; the pump is played through the values link.
#include "ModelsTestSupport.h"

#include "QtApps/Common/Controllers/PumpSessionController.h"
#include "QtApps/Common/Model/PumpSession.h"
#include "QtApps/Common/Models/PumpFaultsModel.h"
#include "QtApps/Common/Models/PumpFaultsSortFilterProxyModel.h"
#include "QtApps/Common/Models/PumpSimulatedFaultsModel.h"

#include <QAbstractItemModelTester>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace models::faults;
using communication::MotorFaultType;
using communication::PumpFaults;
using Tester = QAbstractItemModelTester;

namespace {

QList<int> activeRows(const QAbstractItemModel& model) {
    QList<int> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (model.index(row, 0).data(PumpFaultsModel::ActiveRole).toBool()) {
            rows.append(row);
        }
    }
    return rows;
}

// The faults value and a session controller to drive, for the simulated model.
struct Rig {
    ValuesLink link;
    PumpFaults faults{link.container()};
    ValuesComms comms{link};
    communication::PumpSession session{comms};
    communication::PumpSessionController controller{session};
    void word(uint32_t faultWord) {
        faults.onUpdateFaults(faultWord);
        testsupport::deliverQueued();
    }
};

} // namespace

class FaultModelsTest : public QObject {
    Q_OBJECT

private slots:
    void faultWord_activatesTheRowsOfBitsOneToFourteen_data();
    void faultWord_activatesTheRowsOfBitsOneToFourteen();
    void sameWordTwice_changesRowsOnce_proxyEmptiesWhenFaultsClear();
    void simulatedFault_activeOnlyOnConfirmation_resetWhenDisconnected();
};

void FaultModelsTest::faultWord_activatesTheRowsOfBitsOneToFourteen_data() {
    QTest::addColumn<quint32>("word");
    QTest::addColumn<QList<int>>("active");
    QTest::newRow("bit 0 is no fault") << quint32{0x00000001} << QList<int>{};
    QTest::newRow("bit 1 Overvoltage") << quint32{0x00000002} << QList<int>{0};
    QTest::newRow("bit 14 Speed") << quint32{0x00004000} << QList<int>{13};
    QTest::newRow("unknown bits 15-31") << quint32{0xFFFF8000} << QList<int>{};
    QTest::newRow("Stall, gate drive") << quint32{0x00000820} << QList<int>{4, 10};
}

void FaultModelsTest::faultWord_activatesTheRowsOfBitsOneToFourteen() {
    QFETCH(quint32, word);
    QFETCH(QList<int>, active);
    Rig rig;
    PumpFaultsModel model(rig.faults, nullptr);
    Tester tester(&model);
    PumpFaultsSortFilterProxyModel proxy(model, nullptr);
    Tester proxyTester(&proxy);
    proxy.setFilterRegularExpression(QStringLiteral("true"));

    rig.link.update(2, 1, 1, testsupport::bytesOf(word)); // the pump object's fault word
    testsupport::deliverQueued();
    QCOMPARE(model.rowCount(), 14);
    QCOMPARE(activeRows(model), active);
    QCOMPARE(proxy.faultActive(), !active.isEmpty());
    QCOMPARE(proxy.rowCount(), active.size());
}

void FaultModelsTest::sameWordTwice_changesRowsOnce_proxyEmptiesWhenFaultsClear() {
    Rig rig;
    PumpFaultsModel model(rig.faults, nullptr);
    PumpFaultsSortFilterProxyModel proxy(model, nullptr);
    Tester tester(&proxy);
    QSignalSpy changes(&model, &PumpFaultsModel::dataChanged);
    QSignalSpy activity(&proxy, &PumpFaultsSortFilterProxyModel::faultActiveChanged);
    proxy.setFilterRegularExpression(QStringLiteral("true"));

    rig.word((1U << 3) | (1U << 6));
    rig.word((1U << 3) | (1U << 6));
    QCOMPARE(changes.count(), 2); // rows 2 and 5, each once, with no roles named
    QCOMPARE(changes.at(1).at(0).toModelIndex().row(), 5);
    QVERIFY(changes.at(1).at(2).value<QList<int>>().isEmpty());
    QCOMPARE(activity.count(), 2);
    QCOMPARE(proxy.index(1, 0).data(PumpFaultsModel::NameRole).toString(),
             QStringLiteral("Over temperature warning"));
    QVERIFY(!proxy.index(1, 0).data(2).isValid()); // the live model has no title

    proxy.setFilterRegularExpression(QStringLiteral("None"));
    QCOMPARE(proxy.rowCount(), 0);
    proxy.setFilterRegularExpression(QStringLiteral("true"));
    rig.word(0);
    QCOMPARE(proxy.rowCount(), 0);
    QVERIFY(!proxy.faultActive());
    QCOMPARE(activity.count(), 3);

    // A status past the table (never from the pump's decoding) is ignored, the rest is taken.
    model.updateFaults({{99, true}, {0, true}});
    QCOMPARE(activeRows(model), QList<int>{0});
    QCOMPARE(PumpFaultsModelsCommon::faultInfo(14).name, QStringLiteral("Unknown"));
    QCOMPARE(PumpFaultsModelsCommon::faultInfo(1000).name, QStringLiteral("Unknown"));
}

void FaultModelsTest::simulatedFault_activeOnlyOnConfirmation_resetWhenDisconnected() {
    Rig rig;
    PumpSimulatedFaultsModel model(rig.faults, rig.controller, nullptr);
    // The reset's change notice reaches row 14, one past the last row, which the tester flags;
    // nothing else it checks may fail.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("FAIL!")));
    Tester tester(&model, Tester::FailureReportingMode::Warning);
    QCOMPARE(model.index(7).data(PumpSimulatedFaultsModel::TitleRole).toString(),
             QStringLiteral("Overcurrent"));
    QCOMPARE(model.index(7).data(PumpSimulatedFaultsModel::NameRole).toString(),
             QStringLiteral("Inverter VDS overcurrent"));

    QVERIFY(model.enableFault(4));
    testsupport::deliverQueued();
    QCOMPARE(rig.link.lastSent().payload[0], uint8_t{5}); // set-fault "Stall"
    QCOMPARE(activeRows(model), QList<int>{});
    rig.link.acknowledge(rig.link.lastSent(), {5});
    testsupport::deliverQueued();
    QCOMPARE(activeRows(model), QList<int>{4});
    rig.word(1U << 1); // a word never sets a row; one without bit 5 clears "Stall"
    QCOMPARE(activeRows(model), QList<int>{});

    rig.link.clearSent();
    QVERIFY(!model.enableFault(-1));
    QVERIFY(!model.enableFault(14));
    emit rig.faults.setFaultAck(MotorFaultType::None);
    emit rig.faults.setFaultAck(static_cast<MotorFaultType>(15));
    emit rig.faults.setFaultAck(MotorFaultType::Speed);
    testsupport::deliverQueued();
    QCOMPARE(rig.link.sentCount(), 0);
    QCOMPARE(activeRows(model), QList<int>{13});

    emit rig.session.pumpConnectionChanged(true);
    testsupport::deliverQueued();
    QCOMPARE(activeRows(model), QList<int>{13});
    QSignalSpy changes(&model, &PumpSimulatedFaultsModel::dataChanged);
    QTest::ignoreMessage(
        QtWarningMsg, QRegularExpression(QStringLiteral("FAIL! bottomRight.row\\(\\) < rowCount")));
    emit rig.session.pumpConnectionChanged(false);
    testsupport::deliverQueued();
    QCOMPARE(activeRows(model), QList<int>{});
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(1).toModelIndex().row(), 14);
}

QTEST_GUILESS_MAIN(FaultModelsTest)
#include "tst_FaultModels.moc"
