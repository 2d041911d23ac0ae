// The parts of brackwater-cli that decide what a script sees: the command line, the output and
// the progress line.

#include "QtApps/Cli/CliArguments.h"
#include "QtApps/Cli/CliOutput.h"
#include "QtApps/Cli/ProgressLine.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using cli::CliArguments;
using cli::CliOutput;
using cli::ProgressLine;

class CliPartsTest : public QObject {
    Q_OBJECT

private slots:
    void arguments_takeOptionsAnywhereAndPortsFromTheVariable() {
        qputenv("BRACKWATER_LINK_PORTS", "/dev/pts/7:/dev/pts/8");
        const CliArguments fromVariable =
            CliArguments::parse({"brackwater-cli", "watch", "--timeout", "2.5", "--seconds", "3"});
        QCOMPARE(fromVariable.action(), CliArguments::Action::Run);
        QCOMPARE(fromVariable.invocation().ports, (QStringList{"/dev/pts/7", "/dev/pts/8"}));
        QCOMPARE(fromVariable.invocation().timeoutMs, 2500);
        QCOMPARE(fromVariable.invocation().seconds, 3);

        const CliArguments named = CliArguments::parse(
            {"brackwater-cli", "load-settings", "--port", "COM3", "a.json", "--dry-run", "--json"});
        QCOMPARE(named.action(), CliArguments::Action::Run);
        QCOMPARE(named.invocation().ports, QStringList{"COM3"});
        QCOMPARE(named.invocation().command, QStringLiteral("load-settings"));
        QCOMPARE(named.invocation().arguments, QStringList{"a.json"});
        QVERIFY(named.invocation().dryRun && named.invocation().json);
        QCOMPARE(named.invocation().timeoutMs, cli::CliInvocation::kDefaultTimeoutMs);
        qunsetenv("BRACKWATER_LINK_PORTS");
    }

    void output_json_isOneDocumentWithTheStatusAndTheError() {
        QBuffer out;
        QBuffer err;
        out.open(QIODevice::WriteOnly);
        err.open(QIODevice::WriteOnly);
        CliOutput output(true, out, err, false);
        output.line(QStringLiteral("only in text mode"));
        output.keyValue(QStringLiteral("pumpSerial"), QStringLiteral("AB1234"));
        output.field(QStringLiteral("faults"), QJsonArray{QStringLiteral("Stall")});
        output.error(QStringLiteral("Update failed"));
        output.finish(QStringLiteral("update-firmware"), 1);

        const QJsonObject document = QJsonDocument::fromJson(out.data()).object();
        QCOMPARE(document, (QJsonObject{{"command", "update-firmware"},
                                        {"ok", false},
                                        {"exitStatus", 1},
                                        {"pumpSerial", "AB1234"},
                                        {"faults", QJsonArray{"Stall"}},
                                        {"error", "Update failed"}}));
        QCOMPARE(err.data(), QByteArray("Update failed\n"));
    }

    void output_text_isKeyValueLinesAndAStreamEndsWithoutADocument() {
        QBuffer out;
        QBuffer err;
        out.open(QIODevice::WriteOnly);
        err.open(QIODevice::WriteOnly);
        CliOutput text(false, out, err, false);
        text.keyValue(QStringLiteral("isNetworkPump"), false);
        text.keyValue(QStringLiteral("faults"), QJsonArray{"Stall", "Speed"});
        text.finish(QStringLiteral("info"), 0);
        QCOMPARE(out.data(), QByteArray("isNetworkPump: false\nfaults: Stall, Speed\n"));

        out.buffer().clear();
        out.seek(0);
        CliOutput stream(true, out, err, false);
        stream.streamRecords();
        stream.record(QJsonObject{{"name", "speed"}, {"value", 12.5}});
        stream.finish(QStringLiteral("watch"), 0);
        QCOMPARE(out.data(), QByteArray("{\"name\":\"speed\",\"value\":12.5}\n"));
    }

    void progress_redrawsOneLineOnATerminalAndPrintsNewTextsElsewhere() {
        QBuffer terminal;
        terminal.open(QIODevice::WriteOnly);
        ProgressLine bar(terminal, true);
        bar.show(50, QStringLiteral("[50%] Programming"));
        bar.show(-1, QStringLiteral("7 entries"));
        bar.clear();
        const QString bars = QString(ProgressLine::kBarWidth / 2, QLatin1Char('#')) +
                             QString(ProgressLine::kBarWidth / 2, QLatin1Char('-'));
        const QString first = QStringLiteral("[%1] [50%] Programming").arg(bars);
        // The shorter second text blanks out the rest of the first; clear() blanks it all.
        const QString expected = QLatin1Char('\r') + first + QLatin1Char('\r') +
                                 QStringLiteral("7 entries").leftJustified(first.size()) +
                                 QLatin1Char('\r') + QString(9, QLatin1Char(' ')) +
                                 QLatin1Char('\r');
        QCOMPARE(QString::fromUtf8(terminal.data()), expected);

        QBuffer log;
        log.open(QIODevice::WriteOnly);
        ProgressLine lines(log, false);
        lines.show(10, QStringLiteral("[10%] Programming"));
        lines.show(10, QStringLiteral("[10%] Programming"));
        lines.show(20, QStringLiteral("[20%] Programming"));
        lines.clear();
        QCOMPARE(log.data(), QByteArray("[10%] Programming\n[20%] Programming\n"));
    }
};

QTEST_GUILESS_MAIN(CliPartsTest)
#include "tst_CliParts.moc"
