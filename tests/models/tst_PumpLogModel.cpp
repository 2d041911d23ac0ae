// The pump-log model: display rows, reading and clearing through the real value and proxy, and
// the export file.
#include "ModelsTestSupport.h"

#include "QtApps/Common/Model/PumpValues/Logger/PumpLog.h"
#include "QtApps/Common/Models/PumpLogExport.h"
#include "QtApps/Common/Models/PumpLogModel.h"
#include "QtApps/Common/Models/PumpLogRows.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using models::log::PumpLogModel;
using Operation = halyard::protocol::message::Operation;

namespace {

// Plays a pump whose log holds `entries`, answering the read that the model queued.
void answerRead(ValuesLink& link, const QList<QByteArray>& entries) {
    testsupport::deliverQueued();
    for (const QByteArray& entry : entries + QList<QByteArray>{""}) {
        std::vector<uint8_t> text(entry.begin(), entry.end());
        text.push_back(0);
        link.acknowledge(link.lastSent(), text);
    }
    testsupport::deliverQueued();
}

QStringList rows(const PumpLogModel& model) {
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row) {
        list.append(model.index(row).data(PumpLogModel::LogEntryRole).toString());
    }
    return list;
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

} // namespace

class PumpLogModelTest : public QObject {
    Q_OBJECT

private slots:
    void displayRow_timePrefixAndTextAfterTheFirstColon_data();
    void displayRow_timePrefixAndTextAfterTheFirstColon();
    void read_emptyLogIsOneRow_rowsReplacedAsAWhole_clearReadsAgain();
    void export_appendsOnEveryExport_unwritableFolderChangesNothing();
};

void PumpLogModelTest::displayRow_timePrefixAndTextAfterTheFirstColon_data() {
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("row");
    QTest::newRow("seconds") << "5025:Pump started"
                             << "0h 0m 5s 25ms: Pump started";
    QTest::newRow("every unit") << "3723004:Fault"
                                << "1h 2m 3s 4ms: Fault";
    QTest::newRow("first colon only") << "12:a:b"
                                      << "0h 0m 0s 12ms: a:b";
    QTest::newRow("32-bit uptime") << "4294967295:x"
                                   << "1193h 2m 47s 295ms: x";
    QTest::newRow("time that does not parse") << "12a:Boot"
                                              << "0h 0m 0s 0ms: Boot";
    QTest::newRow("no colon") << "Boot 12"
                              << "0h 0m 0s 0ms: Boot 12";
    QTest::newRow("not text") << QStringLiteral("7:a\nb\x01")
                              << QStringLiteral("0h 0m 0s 7ms: a\uFFFDb\uFFFD");
}

void PumpLogModelTest::displayRow_timePrefixAndTextAfterTheFirstColon() {
    QFETCH(QString, entry);
    QFETCH(QString, row);
    QCOMPARE(models::log::DisplayRow(entry), row);
}

void PumpLogModelTest::read_emptyLogIsOneRow_rowsReplacedAsAWhole_clearReadsAgain() {
    ValuesLink link;
    communication::PumpLog log(link.container());
    PumpLogModel model(log, nullptr);
    QAbstractItemModelTester tester(&model);
    QSignalSpy removals(&model, &PumpLogModel::rowsRemoved);

    QVERIFY(model.getPumpLog());
    QCOMPARE(link.sentCount(), 0); // queued to the value's thread
    answerRead(link, {""});        // the first entry comes back empty, and so does the next
    QCOMPARE(rows(model), QStringList{QStringLiteral("0h 0m 0s 0ms: ")});

    QVERIFY(model.getPumpLog());
    answerRead(link, {"5025:Pump started", "12:a:b"});
    QCOMPARE(rows(model), (QStringList{QStringLiteral("0h 0m 5s 25ms: Pump started"),
                                       QStringLiteral("0h 0m 0s 12ms: a:b")}));
    QCOMPARE(removals.count(), 1);

    QVERIFY(model.clearPumpLog());
    testsupport::deliverQueued();
    QCOMPARE(link.countSent(7, 0, Operation::Reset), 1U);
    link.acknowledge(link.lastSent());
    answerRead(link, {"9:Log cleared"});
    QCOMPARE(rows(model), QStringList{QStringLiteral("0h 0m 0s 9ms: Log cleared")});
}

void PumpLogModelTest::export_appendsOnEveryExport_unwritableFolderChangesNothing() {
    ValuesLink link;
    communication::PumpLog log(link.container());
    PumpLogModel model(log, nullptr);
    QVERIFY(model.getPumpLog());
    answerRead(link, {"5025:Pump started", "12:a:b", "3723004:Said \"stop\""});
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("AB1234.log"));

    const QByteArray once = "\"Pump serial number\",AB1234\n"
                            "\"Pump software version\",1.16.0\n"
                            "\"App software version\",1.16.1\n"
                            "0h 0m 5s 25ms,\" Pump started\"\n"
                            "0h 0m 0s 12ms,\" a:b\"\n"
                            "1h 2m 3s 4ms,\" Said \"stop\"\"\n";
    for (const QByteArray& expected : {once, once + once}) {
        QVERIFY(model.exportToFile(path, "AB1234", "1.16.0", "1.16.1"));
        QCOMPARE(contents(path), expected);
    }
    // A row without a colon (the model never makes one) is written whole on both sides.
    QVERIFY(models::log::WritePumpLogExport(path, {}, {QStringLiteral("no colon")}));
    QVERIFY(contents(path).endsWith("\nno colon,\"no colon\"\n"));

    // A "folder" that is a file cannot take the export, whoever runs the test (root too), nor
    // can a folder that does not exist, nor a full disk.
    const QStringList before = QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden);
    QVERIFY(!model.exportToFile(path + QStringLiteral("/AB.log"), "AB", "1", "2"));
    QVERIFY(!model.exportToFile(folder.filePath(QStringLiteral("missing/AB.log")), "AB", "1", "2"));
    QVERIFY(!model.exportToFile(QStringLiteral("/dev/full"), "AB", "1", "2"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden), before);
    QVERIFY(contents(path).startsWith(once + once));

    QVERIFY(QRegularExpression(QStringLiteral("/Downloads/AB1234_\\d{6}_\\d{6}\\.log$"))
                .match(PumpLogModel::proposedExportPath(QStringLiteral("AB1234")))
                .hasMatch());
}

QTEST_GUILESS_MAIN(PumpLogModelTest)
#include "tst_PumpLogModel.moc"
