// The pump-head model and its filtered view: rows from the pump's head list, the product
// catalogue, and the filter by motor, catalogue and exact name.
#include "ModelsTestSupport.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"
#include "QtApps/Common/Model/PumpValues/PumpHeads.h"
#include "QtApps/Common/Models/PumpHeadCatalogue.h"
#include "QtApps/Common/Models/PumpHeadsModel.h"
#include "QtApps/Common/Models/PumpHeadsSortFilterProxyModel.h"

#include <QAbstractItemModelTester>
#include <QSet>
#include <QTest>
#include <QTranslator>

using models::pumpHeads::PumpHeadsModel;
using models::pumpHeads::PumpHeadsSortFilterProxyModel;

namespace {

// As the pump lists them: name, rated speed (drpm), BLDC flag, stepper flag.
const QList<communication::objects::QPumpHeadParameterTypes> kPumpList = {
    {QStringLiteral("None"), 0, 1, 1},        {QStringLiteral("BW-S10"), 6000, 1, 1},
    {QStringLiteral("BW-S10HP"), 6000, 1, 1}, {QStringLiteral("BW-M06x4"), 3000, 0, 1},
    {QStringLiteral("BW-F73"), 2500, 1, 0},   {QStringLiteral("ZZ-99"), 1000, 1, 1},
};

QStringList names(const QAbstractItemModel& model) {
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row) {
        list.append(model.index(row, 0).data(PumpHeadsModel::NameRole).toString());
    }
    return list;
}

// A language in which "None" is not "None".
class NoneTranslated final : public QTranslator {
public:
    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override {
        return qstrcmp(context, "PumpHeadsModel") == 0 && qstrcmp(text, "None") == 0
                   ? QStringLiteral("Keiner")
                   : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class PumpHeadsModelTest : public QObject {
    Q_OBJECT

private slots:
    void rows_fromThePumpsList_proxyShowsKnownHeadsThatFitTheMotor_byExactName();
    void catalogue_noneThenThirteenModels_coveringEveryHeadOfTheDrives();
};

void PumpHeadsModelTest::rows_fromThePumpsList_proxyShowsKnownHeadsThatFitTheMotor_byExactName() {
    ValuesLink link;
    communication::PumpHeads heads(link.container());
    PumpHeadsModel model(heads, nullptr);
    QAbstractItemModelTester tester(&model);
    PumpHeadsSortFilterProxyModel proxy(model, nullptr);
    QAbstractItemModelTester proxyTester(&proxy);

    QVERIFY(proxy.getPumpHeads());
    testsupport::deliverQueued();
    QCOMPARE(link.sentCount(), 1);
    QCOMPARE(link.lastSent().attribute, uint8_t{4});
    emit heads.getPumpHeadsResponse(kPumpList);
    testsupport::deliverQueued();
    QCOMPARE(model.index(0).data(PumpHeadsModel::DescriptionRole), QVariant(QString()));
    const QModelIndex variant = model.index(2);
    QCOMPARE(variant.data(PumpHeadsModel::PumpHeadIdRole), QVariant(QStringLiteral("BW-S10HP")));
    QVERIFY(variant.data(PumpHeadsModel::DescriptionRole).toString().startsWith("3 rollers"));
    QCOMPARE(variant.data(PumpHeadsModel::RatedSpeedDrpmRole), QVariant(6000U));
    QCOMPARE(model.index(3).data(PumpHeadsModel::BldcCompatibleRole), QVariant(false));
    QCOMPARE(model.index(5).data(PumpHeadsModel::DescriptionRole).toString(),
             QStringLiteral("Lorem ipsum dolor sit amet, vel Lorem ipsum dolor sit amet, vel."));

    const QStringList both{QStringLiteral("None"), QStringLiteral("BW-S10"),
                           QStringLiteral("BW-S10HP")};
    QCOMPARE(names(proxy), both + QStringList{QStringLiteral("BW-M06x4")}); // stepper by default
    proxy.setIsStepperPump(false);
    QCOMPARE(names(proxy), both + QStringList{QStringLiteral("BW-F73")});
    proxy.setNameFilter(QStringLiteral("BW-S10"));
    QCOMPARE(names(proxy), QStringList{QStringLiteral("BW-S10")});
    // A prefix, another case, a head the catalogue lacks, a pattern that is no expression.
    for (const char* pattern : {"BW-S1", "bw-s10", "ZZ-99", "["}) {
        proxy.setNameFilter(QString::fromLatin1(pattern));
        QVERIFY2(names(proxy).isEmpty(), pattern);
    }

    emit heads.getPumpHeadsResponse({});
    testsupport::deliverQueued();
    QCOMPARE(model.rowCount(), 0);

    // "None" passes the catalogue only while it is called "None" on screen.
    NoneTranslated translator;
    QCoreApplication::installTranslator(&translator);
    emit heads.getPumpHeadsResponse(kPumpList.mid(0, 2));
    testsupport::deliverQueued();
    QCoreApplication::removeTranslator(&translator);
    proxy.setNameFilter(QString());
    QCOMPARE(model.index(0).data(PumpHeadsModel::NameRole), QVariant(QStringLiteral("Keiner")));
    QCOMPARE(names(proxy), QStringList{QStringLiteral("BW-S10")});
}

void PumpHeadsModelTest::catalogue_noneThenThirteenModels_coveringEveryHeadOfTheDrives() {
    const auto catalogue = models::pumpHeads::PumpHeadCatalogue();
    QCOMPARE(catalogue.size(), 14);
    QCOMPARE(catalogue.first().description, QString());
    QSet<QString> variants{QStringLiteral("None")};
    for (const auto& model : catalogue.mid(1)) {
        QVERIFY2(!model.description.isEmpty() && model.variants.contains(model.name),
                 qPrintable(model.name));
        for (const QString& variant : model.variants) {
            QVERIFY2(!variants.contains(variant), qPrintable(variant));
            variants.insert(variant);
        }
    }
    // The drives' 27-entry head table names exactly the catalogue's variants.
    QSet<QString> driveHeads;
    for (uint8_t type = 0; type < halyard::pump::kPumpHeadCount; ++type) {
        driveHeads.insert(communication::objects::PumpHeadCatalogueEntry(type).name);
    }
    QCOMPARE(variants, driveHeads);
}

QTEST_GUILESS_MAIN(PumpHeadsModelTest)
#include "tst_PumpHeadsModel.moc"
