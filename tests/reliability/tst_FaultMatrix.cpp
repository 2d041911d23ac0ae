// Every long operation against the pump simulator under every line fault it offers, run with the
// built brackwater-cli (the application's own procedures without the window). Each cell states
// what must hold, and the whole matrix is printed as a table at the end.

#include "tests/support/CliProcess.h"
#include "tests/support/SimulatorProcess.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using testsupport::SimulatorProcess;

namespace {

// An update whose pump vanishes after its reset waits 60 s for it to come back.
constexpr int kRunLimitMs = 90000;

struct Fault {
    QString name;
    QStringList simulatorArguments;
    bool mustComplete; // a fault the retry rule absorbs
};

struct Operation {
    QString name;
    QStringList cliArguments; // %1 stands for the scratch folder
    int unplugAfterMs;        // in the middle of this operation
    QString mayFailUnder;     // a fault the retry rule absorbs but this operation may still not
};

const QList<Fault>& faults() {
    static const QList<Fault> list{
        {QStringLiteral("none"), {}, true},
        {QStringLiteral("1 % dropped"), {"--drop-in", "0.01", "--drop-out", "0.01"}, true},
        {QStringLiteral("1 % corrupted"), {"--corrupt-in", "0.01", "--corrupt-out", "0.01"}, true},
        {QStringLiteral("5 % duplicated"),
         {"--duplicate-in", "0.05", "--duplicate-out", "0.05"},
         true},
        // The pump goes silent from 0.6 s to 2.6 s, and so on every 2.6 s.
        {QStringLiteral("2 s stall"), {"--stall", "2000", "--stall-interval", "2600"}, false},
        {QStringLiteral("unplugged"), {"--unplug-after", "%1"}, false},
    };
    return list;
}

const QList<Operation>& operations() {
    static const QList<Operation> list{
        {QStringLiteral("connect"), {"info"}, 450, {}},
        {QStringLiteral("settings save"), {"save-settings", "%1/saved.json"}, 650, {}},
        {QStringLiteral("settings load"),
         {"load-settings", "%1/known.json"},
         1500,
         QStringLiteral("5 % duplicated")},
        {QStringLiteral("log export"), {"export-log", "%1/log.csv"}, 600, {}},
        // A flipped bit inside a frame that still decodes reaches the pump as it is; the image's
        // CRC-32 catches it, and the update ends as failed at verifying.
        {QStringLiteral("firmware update"),
         {"update-firmware", DEMO_BUNDLE_PATH},
         1000,
         QStringLiteral("1 % corrupted")},
        {QStringLiteral("streaming"), {"watch", "--seconds", "4"}, 2500, {}},
    };
    return list;
}

// The ways an operation may end other than in success, in the application's own words.
const QList<QRegularExpression>& definedFailures() {
    static const QList<QRegularExpression> list{
        QRegularExpression(QStringLiteral("^No pump answered on .* within \\d+ s$")),
        QRegularExpression(QStringLiteral("^Disconnected\\.?$")),
        QRegularExpression(QStringLiteral("^Update failed: Verify failed ")),
        // Ids are reused at once, so an answer that came twice can be read as the next request's
        // with that id: a load then meets a wrong identity, or a read-back that stays wrong.
        QRegularExpression(
            QStringLiteral("^(Could not apply all settings|Incompatible pump settings)$")),
        QRegularExpression(QStringLiteral("^Timed out waiting for response$")),
        QRegularExpression(QStringLiteral("^Pump response timeout$")),
        QRegularExpression(QStringLiteral("^The settings were loaded, but the link was lost")),
    };
    return list;
}

using Run = testsupport::CliRun;

} // namespace

Q_DECLARE_METATYPE(Fault)
Q_DECLARE_METATYPE(Operation)

class FaultMatrixTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir mFolder;
    QMap<QString, QString> mOutcomes; // "operation|fault" -> outcome

    Run cli(const QString& port, const QStringList& arguments) const {
        return testsupport::runCli(
            mFolder.path(), QStringList{"--port", port, "--timeout", "3"} + arguments, kRunLimitMs);
    }

    QString scratch(const QString& name) const { return mFolder.filePath(name); }

private slots:
    void initTestCase() {
        QVERIFY(mFolder.isValid());
        SimulatorProcess simulator;
        const QString port = simulator.start({"--pty", "--no-console"});
        QVERIFY(!port.isEmpty());
        const Run saved = cli(port, {"save-settings", scratch("known.json")});
        QVERIFY2(saved.status == 0, saved.said());
    }

    void cleanupTestCase() {
        QString table = QStringLiteral("\n| operation |");
        for (const Fault& fault : faults()) {
            table += QStringLiteral(" %1 |").arg(fault.name);
        }
        table += QStringLiteral("\n|---|") + QStringLiteral("---|").repeated(faults().size());
        for (const Operation& operation : operations()) {
            table += QStringLiteral("\n| %1 |").arg(operation.name);
            for (const Fault& fault : faults()) {
                table += QStringLiteral(" %1 |").arg(
                    mOutcomes.value(operation.name + QLatin1Char('|') + fault.name, "not run"));
            }
        }
        qInfo().noquote() << table;
    }

    void cell_data() {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<Fault>("fault");
        for (const Operation& operation : operations()) {
            for (const Fault& fault : faults()) {
                QTest::addRow("%s / %s", qPrintable(operation.name), qPrintable(fault.name))
                    << operation << fault;
            }
        }
    }
    void cell() {
        QFETCH(Operation, operation);
        QFETCH(Fault, fault);
        for (const char* file : {"saved.json", "log.csv"}) {
            QFile::remove(scratch(QLatin1String(file)));
        }
        QStringList simulatorArguments{"--pty", "--no-console",       "--seed",
                                       "11",    "--firmware-version", "1.15.0"};
        for (const QString& argument : fault.simulatorArguments) {
            simulatorArguments << (argument == QStringLiteral("%1")
                                       ? QString::number(operation.unplugAfterMs)
                                       : argument);
        }
        QStringList arguments;
        for (const QString& argument : operation.cliArguments) {
            arguments << (argument.contains("%1") ? argument.arg(mFolder.path()) : argument);
        }
        SimulatorProcess simulator;
        const QString port = simulator.start(simulatorArguments);
        QVERIFY(!port.isEmpty());

        const Run run = cli(port, arguments);
        QVERIFY2(run.status == 0 || run.status == 1 || run.status == 3,
                 qPrintable("no defined end (hang or crash):\n" + run.said()));
        const QString words = run.lastWords();
        QString outcome = QStringLiteral("completes");
        if (run.status != 0) {
            QVERIFY2(!fault.mustComplete || operation.mayFailUnder == fault.name, run.said());
            const bool defined = std::any_of(
                definedFailures().cbegin(), definedFailures().cend(),
                [&words](const QRegularExpression& text) { return text.match(words).hasMatch(); });
            QVERIFY2(defined, qPrintable("undefined failure text: " + words));
            outcome = QStringLiteral("fails: \"%1\"").arg(words.left(60));
        }

        // No file is ever left half-written: a save either wrote a whole file or none at all.
        if (operation.name == QStringLiteral("settings save")) {
            QFile saved(scratch("saved.json"));
            if (run.status == 0) {
                QVERIFY(saved.open(QIODevice::ReadOnly));
                QVERIFY(QJsonDocument::fromJson(saved.readAll()).object().contains("oemPump"));
            } else {
                QVERIFY(!saved.exists());
            }
            const QStringList leftovers =
                QDir(mFolder.path()).entryList({"saved*"}, QDir::Files | QDir::Hidden);
            QVERIFY2(leftovers.size() <= 1, qPrintable(leftovers.join(' ')));
        }

        // The pump is never left unreachable or half-updated: after the fault a new session
        // finds it, on the old firmware or the new, and only a completed update shows the new.
        if (!fault.simulatorArguments.contains("--unplug-after")) {
            const Run after = cli(port, {"info", "--json"});
            QVERIFY2(after.status == 0, after.said());
            const QString version =
                QJsonDocument::fromJson(after.out).object().value("appVersion").toString();
            const bool updated = version == QStringLiteral("1.16.1");
            QVERIFY2(updated || version == QStringLiteral("1.15.0"), qPrintable(version));
            if (operation.name == QStringLiteral("firmware update")) {
                QCOMPARE(updated, run.status == 0);
            }
            outcome += QStringLiteral(", pump answers after");
        }
        mOutcomes.insert(operation.name + QLatin1Char('|') + fault.name, outcome);
    }
};

QTEST_GUILESS_MAIN(FaultMatrixTest)
#include "tst_FaultMatrix.moc"
