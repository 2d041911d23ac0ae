// brackwater-cli as a script runs it: the built executable, with --port, against the real pump
// simulator on a pseudo-terminal (and against a pseudo-terminal nobody answers on).

#include "tests/support/CliProcess.h"
#include "tests/support/PtyPair.h"
#include "tests/support/SimulatorProcess.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using testsupport::PtyPair;
using testsupport::SimulatorProcess;

namespace {

constexpr int kRunLimitMs = 30000;

using Run = testsupport::CliRun;

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeJson(const QString& path, const QJsonObject& root) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(QJsonDocument(root).toJson());
}

} // namespace

class CliEndToEndTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir mFolder;
    SimulatorProcess mSimulator;
    QString mPort;
    PtyPair mSilent;

    QString path(const QString& name) const { return mFolder.filePath(name); }

    Run cli(const QStringList& arguments) const {
        return testsupport::runCli(mFolder.path(), arguments, kRunLimitMs);
    }

    /// A run against the shared simulator.
    Run pump(QStringList arguments) const {
        arguments.prepend(mPort);
        arguments.prepend(QStringLiteral("--port"));
        return cli(arguments);
    }

    /// How often the shared simulator has reported `event` ("Session started") so far.
    int simulatorEvents(const char* event) const {
        return static_cast<int>(mSimulatorLog.count(event));
    }
    QByteArray mSimulatorLog;

private slots:
    void initTestCase() {
        QVERIFY(mFolder.isValid());
        QVERIFY(mSilent.isValid());
        // The console stays open: the fault tests raise a fault through it.
        mPort = mSimulator.start(
            {QStringLiteral("--pty"), QStringLiteral("--seed"), QStringLiteral("1")});
        QVERIFY(!mPort.isEmpty());
        connect(&mSimulator.process(), &QProcess::readyReadStandardError, this,
                [this] { mSimulatorLog += mSimulator.process().readAllStandardError(); });
    }

    void cleanupTestCase() {
        disconnect(&mSimulator.process(), nullptr, this, nullptr);
        QVERIFY(mSimulator.interrupt());
    }

    void usageError_exitsTwoSayingWhyAndDoesNothing_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("reason");
        QTest::newRow("no command") << QStringList{} << "No command given";
        QTest::newRow("unknown command") << QStringList{"reboot"} << "Unknown command \"reboot\"";
        QTest::newRow("missing file") << QStringList{"save-settings"} << "takes one FILE";
        QTest::newRow("extra argument") << QStringList{"info", "x"} << "takes no arguments";
        QTest::newRow("unknown option") << QStringList{"info", "--fast"} << "Unknown option";
        QTest::newRow("option of another command")
            << QStringList{"save-settings", "a.json", "--dry-run"} << "--dry-run is no option";
        QTest::newRow("bad timeout") << QStringList{"--timeout", "0", "info"} << "--timeout";
    }
    void usageError_exitsTwoSayingWhyAndDoesNothing() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, reason);
        const Run text = cli(arguments);
        QCOMPARE(text.status, 2);
        QVERIFY2(text.err.contains(reason.toUtf8()), text.said());
        QVERIFY(text.out.isEmpty());

        const Run json = cli(arguments << QStringLiteral("--json"));
        QCOMPARE(json.status, 2);
        QCOMPARE(json.json().value("exitStatus").toInt(), 2);
        QVERIFY2(json.json().value("error").toString().contains(reason), json.said());
    }

    void help_documentsEveryCommandWithAnExample() {
        const Run help = cli({QStringLiteral("--help")});
        QCOMPARE(help.status, 0);
        for (const char* command :
             {"ports", "info", "watch", "save-settings", "load-settings", "export-log", "clear-log",
              "faults", "clear-faults", "update-firmware"}) {
            const QByteArray example = QByteArray("Example: brackwater-cli");
            const qsizetype at = help.out.indexOf("\n  " + QByteArray(command));
            QVERIFY2(at >= 0, command);
            QVERIFY2(help.out.indexOf(example, at) > at, command);
        }
        QVERIFY(help.out.contains("Exit status"));
    }

    void noPump_exitsThreeAfterTheTimeout_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("ports") << QStringList{"ports"};
        QTest::newRow("info") << QStringList{"info"};
        QTest::newRow("watch") << QStringList{"watch", "--seconds", "5"};
        QTest::newRow("save-settings") << QStringList{"save-settings", "unused.json"};
        QTest::newRow("load-settings") << QStringList{"load-settings", "unused.json"};
        QTest::newRow("export-log") << QStringList{"export-log", "unused.log"};
        QTest::newRow("clear-log") << QStringList{"clear-log"};
        QTest::newRow("faults") << QStringList{"faults"};
        QTest::newRow("clear-faults") << QStringList{"clear-faults"};
        QTest::newRow("update-firmware") << QStringList{"update-firmware", "unused.zip"};
    }
    void noPump_exitsThreeAfterTheTimeout() {
        QFETCH(QStringList, arguments);
        const Run run = cli(
            QStringList{"--port", mSilent.portName(), "--timeout", "0.3", "--json"} + arguments);
        QCOMPARE(run.status, 3);
        QVERIFY2(run.err.contains("No pump answered"), run.said());
        QVERIFY2(run.json().value("ok") == QJsonValue(false), run.said());
        QCOMPARE(run.json().value("exitStatus").toInt(), 3);
        QCOMPARE(run.json().value("command").toString(), arguments.first());
        QVERIFY(!QFile::exists(path(QStringLiteral("unused.log"))));
    }

    void ports_listsTheAnsweringPortWithItsProtocolAndTheSilentOne() {
        const Run text = cli({"ports", "--port", mPort, "--port", mSilent.portName()});
        QCOMPARE(text.status, 0);
        QVERIFY2(text.lines().contains(mPort + ": Protocol v1.0.0"), text.said());
        QVERIFY2(text.lines().contains(mSilent.portName() + ": no answer"), text.said());

        const Run json = cli({"ports", "--json", "--port", mPort, "--port", "/dev/no-such-port"});
        QCOMPARE(json.status, 0);
        const QJsonArray ports = json.json().value("ports").toArray();
        QJsonObject pump;
        QJsonObject missing;
        for (const auto& port : ports) {
            const QJsonObject entry = port.toObject();
            if (entry.value("port") == mPort) {
                pump = entry;
            } else if (entry.value("port") == "/dev/no-such-port") {
                missing = entry;
            }
        }
        QCOMPARE(pump.value("protocolVersion").toString(), QStringLiteral("1.0.0"));
        QCOMPARE(pump.value("answered").toBool(), true);
        QCOMPARE(missing.value("answered").toBool(), false);
        QVERIFY2(missing.value("error").toString().contains("no such port"), json.said());
    }

    void info_describesThePumpStopsTheSessionAndRecordsItWhenAsked() {
        const Run text = pump({"info"});
        QCOMPARE(text.status, 0);
        QVERIFY2(text.lines().contains("pumpSerial: SIM-000001"), text.said());
        QVERIFY(text.lines().contains("partNumber: BWD-100-SIM"));
        QVERIFY(text.lines().contains("cliVersion: " BWL_VERSION));
        QVERIFY2(text.err.isEmpty(), text.said()); // no log lines without --verbose
        QTRY_COMPARE(simulatorEvents("Session stopped"), 1);
        QCOMPARE(simulatorEvents("Session started"), 1);

        const QString recordingPath = path(QStringLiteral("info.bwrec"));
        const Run json = pump({"info", "--json", "--record", recordingPath});
        QCOMPARE(json.status, 0);
        QFile recording(recordingPath);
        QVERIFY(recording.open(QIODevice::ReadOnly));
        const QByteArray recorded = recording.readAll();
        QVERIFY2(recorded.startsWith("# Brackwater Link session recording 1\n"),
                 recorded.constData());
        QVERIFY(recorded.contains(" open " + mPort.toUtf8() + '\n'));
        QVERIFY(recorded.contains("Request 0/0 attr=2 Set\n")); // the session start
        const QJsonObject info = json.json();
        QCOMPARE(info.value("ok").toBool(), true);
        QCOMPARE(info.value("pumpSerial").toString(), QStringLiteral("SIM-000001"));
        QCOMPARE(info.value("appVersion").toString(), QStringLiteral("1.16.1"));
        QCOMPARE(info.value("protocolVersion").toString(), QStringLiteral("V1.0.0"));
        QCOMPARE(info.value("motorType").toString(), QStringLiteral("nema24a"));
        QCOMPARE(info.value("isNetworkPump").toBool(), false);
    }

    void watch_streamsJsonLinesForTheSecondsAskedAndEndsCleanlyOnCtrlC() {
        const Run timed = pump({"watch", "--seconds", "1", "--json"});
        QCOMPARE(timed.status, 0);
        QSet<QString> names;
        for (const QString& line : timed.lines()) {
            const QJsonObject reading = QJsonDocument::fromJson(line.toUtf8()).object();
            QVERIFY2(reading.contains("time") && reading.contains("value"), qPrintable(line));
            names << reading.value("name").toString();
            if (reading.value("name") == "supply") {
                QCOMPARE(reading.value("unit").toString(), QStringLiteral("V"));
                QVERIFY(reading.value("value").toDouble() > 20.0);
            }
        }
        for (const char* name : {"speed", "supply", "temperature", "coverOpen", "faults"}) {
            QVERIFY2(names.contains(QString::fromLatin1(name)), timed.said());
        }

        // Without --seconds it runs until Ctrl-C, which ends it as a success. Every session so
        // far was stopped by the program that opened it.
        QProcess endless;
        testsupport::prepareCli(endless, mFolder.path(), {"--port", mPort, "watch"});
        endless.start();
        QByteArray readings; // QTRY evaluates its condition once more after it held
        QTRY_VERIFY_WITH_TIMEOUT((readings += endless.readAllStandardOutput()).contains(" speed "),
                                 5000);
        ::kill(static_cast<pid_t>(endless.processId()), SIGINT);
        QVERIFY(endless.waitForFinished(5000));
        QCOMPARE(endless.exitCode(), 0);
        QTRY_COMPARE(simulatorEvents("Session stopped"), simulatorEvents("Session started"));
        QCOMPARE(simulatorEvents("Session started"), 4);
    }

    void settings_saveThenPreviewLoadAndRefuseAnIncompatibleFile() {
        const QString saved = path(QStringLiteral("pump.json"));
        const Run save = pump({"save-settings", saved});
        QCOMPARE(save.status, 0);
        QCOMPARE(save.lines(), QStringList{"Success"});
        QJsonObject root = QJsonDocument::fromJson(readFile(saved)).object();
        QCOMPARE(root.value("oemPump")["motor"].toString(), QStringLiteral("nema24a"));

        // A faster prime speed: the dry run shows it and sends nothing, the load takes it.
        const int primeSpeed = root.value("oemPump")["primeSpeed"].toInt() + 500;
        QJsonObject oemPump = root.value("oemPump").toObject();
        oemPump.insert("primeSpeed", primeSpeed);
        root.insert("oemPump", oemPump);
        const QString changed = path(QStringLiteral("faster-prime.json"));
        writeJson(changed, root);
        const Run dryRun = pump({"load-settings", changed, "--dry-run"});
        QCOMPARE(dryRun.status, 0);
        const QStringList changes = dryRun.lines().filter(" -> ");
        QVERIFY2(changes.size() == 1 && changes.first().startsWith("Prime speed: "), dryRun.said());
        QVERIFY(pump({"save-settings", saved}).status == 0);
        QVERIFY(readFile(saved) != readFile(changed)); // nothing was sent

        const Run load = pump({"load-settings", changed, "--json"});
        QCOMPARE(load.status, 0);
        QCOMPARE(load.json().value("result").toString(),
                 QStringLiteral("Success. Rebooting pump..."));
        QCOMPARE(load.json().value("preview").toArray().size(), dryRun.lines().size());
        QVERIFY(pump({"save-settings", saved}).status == 0); // after the pump's restart
        QCOMPARE(QJsonDocument::fromJson(readFile(saved)).object(), root);

        // A file for another motor: the application's text, and the pump untouched.
        oemPump.insert("motor", "nema17");
        root.insert("oemPump", oemPump);
        const QString otherMotor = path(QStringLiteral("other-motor.json"));
        writeJson(otherMotor, root);
        const Run refused = pump({"load-settings", otherMotor, "--json"});
        QCOMPARE(refused.status, 1);
        QVERIFY2(refused.err.contains("Incompatible pump settings"), refused.said());
        QCOMPARE(refused.json().value("error").toString(),
                 QStringLiteral("Incompatible pump settings"));
    }

    void log_exportAppendsTheApplicationsFormatAndClearEmptiesTheLog() {
        const QString exported = path(QStringLiteral("pump.log"));
        const Run first = pump({"export-log", exported});
        QCOMPARE(first.status, 0);
        const int entries = first.lines().value(0).toInt();
        QVERIFY2(entries > 0, first.said());
        QList<QByteArray> lines = readFile(exported).split('\n');
        QCOMPARE(lines.value(0), QByteArray("\"Pump serial number\",SIM-000001"));
        QCOMPARE(lines.value(1), QByteArray("\"Pump software version\",1.16.1"));
        QCOMPARE(lines.value(2), QByteArray("\"App software version\"," BWL_VERSION));
        const QRegularExpression entryLine(QStringLiteral("^\\d+h \\d+m \\d+s \\d+ms,\" .*\"$"));
        QVERIFY2(entryLine.match(QString::fromUtf8(lines.value(3))).hasMatch(), lines.value(3));

        // Append mode: a second export follows the first.
        const Run second = pump({"export-log", exported, "--json"});
        QCOMPARE(second.status, 0);
        QVERIFY(second.json().value("entries").toInt() >= entries);
        QCOMPARE(readFile(exported).count("\"Pump serial number\""), 2);

        const Run clear = pump({"clear-log"});
        QCOMPARE(clear.status, 0);
        QCOMPARE(clear.lines(), QStringList{"Log cleared"});
        const Run after = pump({"export-log", path(QStringLiteral("after.log")), "--json"});
        QVERIFY2(after.json().value("entries").toInt() < entries + 2, after.said());

        // A file that cannot be written.
        const Run unwritable = pump({"export-log", path(QStringLiteral("no/such/folder.log"))});
        QCOMPARE(unwritable.status, 1);
        QVERIFY2(unwritable.err.contains("Could not write"), unwritable.said());
    }

    void faults_namesARaisedFaultAndClearFaultsAcknowledgesIt() {
        QCOMPARE(pump({"faults"}).out, QByteArray());
        mSimulator.process().write("fault 5\n");
        QByteArray answer;
        QTRY_VERIFY_WITH_TIMEOUT(
            (answer += mSimulator.process().readAllStandardOutput()).contains("raised"), 2000);
        const Run active = pump({"faults", "--json"});
        QCOMPARE(active.status, 0);
        QCOMPARE(active.json().value("faults").toArray(), QJsonArray{"Stall"});

        const Run clear = pump({"clear-faults"});
        QCOMPARE(clear.status, 0);
        QCOMPARE(clear.lines(), QStringList{"Faults cleared"});
        const Run none = pump({"faults"});
        QCOMPARE(none.status, 0);
        QVERIFY2(none.out.isEmpty(), none.said());
    }

    void updateFirmware_failsWithTheStateTextThenSucceedsAndRestoresTheSettings() {
        SimulatorProcess simulator;
        const QString port =
            simulator.start({QStringLiteral("--pty"), QStringLiteral("--no-console"),
                             QStringLiteral("--firmware-version"), QStringLiteral("1.15.0"),
                             QStringLiteral("--firmware-fault"), QStringLiteral("verify")});
        QVERIFY(!port.isEmpty());
        const QString bundle = QStringLiteral(DEMO_BUNDLE_PATH);

        const Run failed = cli({"--port", port, "update-firmware", bundle, "--json"});
        QCOMPARE(failed.status, 1);
        QCOMPARE(failed.json().value("state").toString(), QStringLiteral("Update failed"));
        QVERIFY2(failed.err.contains("Update failed: Verify failed"), failed.said());
        QVERIFY2(failed.err.contains("%] Programming\n"), failed.said()); // progress, by lines

        const Run updated = cli({"--port", port, "update-firmware", bundle, "--restore-settings"});
        QCOMPARE(updated.status, 0);
        const QStringList lines = updated.lines();
        QVERIFY2(lines.size() == 3, updated.said());
        QVERIFY(lines[0].startsWith("Settings saved to "));
        const QString backup = lines[0].mid(QStringLiteral("Settings saved to ").size());
        QVERIFY2(backup.startsWith(path("data")) && backup.contains("/backups/SIM-000001_"),
                 qPrintable(backup));
        QVERIFY(QJsonDocument::fromJson(readFile(backup)).object().contains("oemPump"));
        QCOMPARE(lines[1], QStringLiteral("Update succeeded!"));
        QCOMPARE(lines[2], QStringLiteral("Settings restored: Success. Rebooting pump..."));

        const Run info = cli({"--port", port, "info", "--json"});
        QCOMPARE(info.json().value("appVersion").toString(), QStringLiteral("1.16.1"));
    }
};

QTEST_GUILESS_MAIN(CliEndToEndTest)
#include "tst_CliEndToEnd.moc"
