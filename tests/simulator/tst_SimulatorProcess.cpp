// The real executable: the port on the first line of standard output, Ctrl-C, a given device,
// unplugging, the console, and refused options.

#include "AppSide.h"
#include "SimulatorRig.h"
#include "tests/support/SimulatorProcess.h"

#include <QSignalSpy>
#include <QTest>

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

using namespace simtest;
using testsupport::SimulatorProcess;

namespace {

/// Asks for the protocol version and waits for the answer.
bool answersVersion(AppSide& app) {
    const qsizetype before = app.answers.size();
    if (!app.request(0, 0, 1, Operation::Get)) {
        return false;
    }
    QSignalSpy spy(&app, &AppSide::answered);
    while (app.answers.size() == before) {
        if (!spy.wait(3000)) {
            return false;
        }
    }
    return app.answers.last().message.type == Type::AckStatus &&
           app.answers.last().message.payloadLength == 3;
}

} // namespace

class tst_SimulatorProcess : public QObject {
    Q_OBJECT

private slots:
    void pty_printsThePortFirstAndClosesOnCtrlC() {
        for (const QStringList& arguments : {QStringList{}, QStringList{"--pty"}}) {
            SimulatorProcess simulator;
            const QString port = simulator.start(arguments + QStringList{"--seed", "3"});
            QVERIFY2(port.startsWith("/dev/pts/"), qPrintable(port));
            AppSide app;
            QVERIFY(app.open(port));
            QVERIFY(answersVersion(app));
            QVERIFY(simulator.interrupt());
            QCOMPARE(simulator.process().exitStatus(), QProcess::NormalExit);
            QCOMPARE(simulator.process().exitCode(), 0);
            const QByteArray log = simulator.process().readAllStandardError();
            QVERIFY2(log.contains("seed 3") && log.contains("Closed"), log.constData());
        }
    }

    void device_servesAGivenSerialPort() {
        int master = -1;
        int slave = -1;
        char name[256] = {};
        QCOMPARE(::openpty(&master, &slave, name, nullptr, nullptr), 0);
        termios attributes{};
        ::tcgetattr(slave, &attributes);
        ::cfmakeraw(&attributes);
        ::tcsetattr(slave, TCSANOW, &attributes);
        ::fcntl(master, F_SETFL, ::fcntl(master, F_GETFL) | O_NONBLOCK);

        SimulatorProcess simulator;
        QCOMPARE(simulator.start({"--device", QString::fromLatin1(name), "--seed", "1"}),
                 QString::fromLatin1(name));
        AppSide app;
        app.adopt(master);
        QVERIFY(answersVersion(app));
        QVERIFY(simulator.interrupt());
        QCOMPARE(simulator.process().exitCode(), 0);
        app.close();
        ::close(master);
        ::close(slave);
    }

    void unplugAfter_closesTheLineAndExits() {
        SimulatorProcess simulator;
        const QString port = simulator.start({"--unplug-after", "400", "--seed", "1"});
        QVERIFY(!port.isEmpty());
        AppSide app;
        QVERIFY(app.open(port));
        QVERIFY(answersVersion(app));
        QVERIFY(simulator.process().waitForFinished(5000));
        QCOMPARE(simulator.process().exitCode(), 0);
        QVERIFY(simulator.process().readAllStandardError().contains("Line closed"));
    }

    void console_commandsReachThePump() {
        SimulatorProcess simulator;
        const QString port = simulator.start({"--seed", "1"});
        QVERIFY(!port.isEmpty());
        QProcess& process = simulator.process();
        const auto command = [&process](const char* line) {
            process.write(line);
            process.write("\n");
            while (!process.canReadLine()) {
                if (!process.waitForReadyRead(3000)) {
                    return QString();
                }
            }
            return QString::fromLocal8Bit(process.readLine()).trimmed();
        };
        // The commands themselves are proven on the console in-process.
        QCOMPARE(command("fault 5"), QStringLiteral("fault 5 raised: Stall"));

        AppSide app;
        QVERIFY(app.open(port));
        app.request(2, 1, 1, Operation::Get);
        QTRY_COMPARE(app.answers.size(), 1);
        std::uint32_t faults = 0;
        QVERIFY(app.answers.first().message.Reader().Read(faults));
        QCOMPARE(faults, std::uint32_t{1u << 5});

        QCOMPARE(command("quit"), QStringLiteral("bye"));
        QVERIFY(process.waitForFinished(5000));
        QCOMPARE(process.exitCode(), 0);
    }

    void noConsole_ignoresStandardInput() {
        SimulatorProcess simulator;
        const QString port = simulator.start({"--no-console", "--seed", "1"});
        QVERIFY(!port.isEmpty());
        simulator.process().write("quit\ncover open\n");
        AppSide app;
        QVERIFY(app.open(port));
        QVERIFY(answersVersion(app));
        QCOMPARE(simulator.process().state(), QProcess::Running);
        app.request(2, 1, 7, Operation::Get);
        QTRY_COMPARE(app.answers.size(), 2);
        QCOMPARE(app.answers.last().message.payload[0], std::uint8_t{0}); // cover still closed
        QVERIFY(simulator.interrupt());
    }

    void options_helpAndRefusals() {
        QProcess help;
        help.start(QStringLiteral(PUMP_SIMULATOR_PATH), {"--help"});
        QVERIFY(help.waitForFinished(5000));
        QCOMPARE(help.exitCode(), 0);
        const QByteArray text = help.readAllStandardOutput();
        QVERIFY(text.contains("--unplug-after") && text.contains("cover open|close"));

        const QList<QStringList> refused = {
            {"--drop-in", "2"},
            {"--variant", "wireless"},
            {"--head", "27"},
            {"--pty", "--device", "/dev/null"},
            {"--firmware-version", "1.2"},
            {"--stall", "500", "--stall-interval", "500"},
            {"--serial", "123456789012345678901234567890123"},
        };
        for (const QStringList& arguments : refused) {
            QProcess process;
            process.start(QStringLiteral(PUMP_SIMULATOR_PATH), arguments);
            QVERIFY(process.waitForFinished(5000));
            QCOMPARE(process.exitCode(), 2);
            QVERIFY2(process.readAllStandardOutput().isEmpty(), qPrintable(arguments.join(' ')));
        }
        QProcess missing;
        missing.start(QStringLiteral(PUMP_SIMULATOR_PATH), {"--device", "/dev/no-such-port"});
        QVERIFY(missing.waitForFinished(5000));
        QCOMPARE(missing.exitCode(), 1);
        QVERIFY(missing.readAllStandardError().contains("Cannot open /dev/no-such-port"));
    }
};

QTEST_GUILESS_MAIN(tst_SimulatorProcess)
#include "tst_SimulatorProcess.moc"
