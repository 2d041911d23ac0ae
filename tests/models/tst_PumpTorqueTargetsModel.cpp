// The torque-target model on the real stepper values and proxy.
#include "ModelsTestSupport.h"

#include "QtApps/Common/Model/PumpValues/Motor/PumpTorqueIndex.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpTorqueTargets.h"
#include "QtApps/Common/Models/PumpTorqueTargetsModel.h"

#include <QAbstractItemModelTester>
#include <QLocale>
#include <QTest>

#include <limits>

using models::torque::PumpTorqueTargetsModel;
using Operation = halyard::protocol::message::Operation;

namespace {

QStringList texts(const PumpTorqueTargetsModel& model) {
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row) {
        list.append(model.index(row).data(PumpTorqueTargetsModel::TextRole).toString());
    }
    return list;
}

} // namespace

class PumpTorqueTargetsModelTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void targetsAndIndex_readFromTheDrive_indexSetOnlyWithinTheList();
    void badTargets_emptyListAndValuesThatAreNoNumbers();
};

void PumpTorqueTargetsModelTest::targetsAndIndex_readFromTheDrive_indexSetOnlyWithinTheList() {
    ValuesLink link;
    communication::PumpTorqueTargets targets(link.container());
    communication::PumpTorqueIndex index(link.container());
    PumpTorqueTargetsModel model(targets, index, nullptr);
    QAbstractItemModelTester tester(&model);
    QCOMPARE(model.currentIndex(), -1);

    QVERIFY(model.getTorqueTargets());
    testsupport::deliverQueued();
    QCOMPARE(link.sentCount(), 2); // the targets (attribute 6) and the index (5) of object 3
    for (const auto& request : std::vector(link.sent())) {
        std::vector<uint8_t> answer{2};
        if (request.attribute == 6) {
            answer.clear();
            for (const float target : {0.5F, 0.8F, 1.2F}) {
                const auto bytes = testsupport::bytesOf(target);
                answer.insert(answer.end(), bytes.begin(), bytes.end());
            }
        }
        link.acknowledge(request, answer);
    }
    testsupport::deliverQueued();
    QCOMPARE(texts(model), (QStringList{QStringLiteral("0.50 A"), QStringLiteral("0.80 A"),
                                        QStringLiteral("1.20 A")}));
    QCOMPARE(model.index(2).data(PumpTorqueTargetsModel::TorqueIndexRole), QVariant(2));
    QCOMPARE(model.index(2).data(PumpTorqueTargetsModel::TargetCurrentARole).toDouble(),
             static_cast<double>(1.2F));
    QCOMPARE(model.currentIndex(), 2);

    link.clearSent();
    QVERIFY(!model.setTorqueIndex(3));
    QVERIFY(!model.setTorqueIndex(-1));
    QVERIFY(model.setTorqueIndex(1));
    QCOMPARE(link.sentCount(), 0); // queued to the value's thread
    testsupport::deliverQueued();
    QCOMPARE(link.sentCount(), 1);
    QCOMPARE(link.lastSent().payload[0], uint8_t{1});
    link.acknowledge(link.lastSent()); // the drive then reboots to apply it
    QCOMPARE(link.countSent(1, 0, Operation::Reset), 1U);
}

void PumpTorqueTargetsModelTest::badTargets_emptyListAndValuesThatAreNoNumbers() {
    ValuesLink link;
    communication::PumpTorqueTargets targets(link.container());
    communication::PumpTorqueIndex index(link.container());
    PumpTorqueTargetsModel model(targets, index, nullptr);
    QAbstractItemModelTester tester(&model);

    emit targets.getTorqueTargetsResponse(
        {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 2.0F});
    testsupport::deliverQueued();
    QCOMPARE(texts(model),
             (QStringList{QStringLiteral("—"), QStringLiteral("—"), QStringLiteral("2.00 A")}));
    emit targets.getTorqueTargetsResponse({});
    testsupport::deliverQueued();
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(!model.setTorqueIndex(0));
}

QTEST_GUILESS_MAIN(PumpTorqueTargetsModelTest)
#include "tst_PumpTorqueTargetsModel.moc"
