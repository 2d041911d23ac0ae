// The real application, offscreen, against pumps played by the test on pseudo-terminals.
#include "tests/support/PumpLine.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using halyard::protocol::ProtocolMessage;
using halyard::protocol::message::Operation;
using halyard::protocol::message::Status;
using halyard::protocol::message::Type;
using testsupport::PumpLine;

namespace {

enum Attribute : std::uint8_t { KeepAlive = 0, Version = 1, Start = 2 };

/// Answers every request of the protocol object while `answering` is set.
void answerWhile(PumpLine& pump, const bool& answering) {
    pump.setResponder([&answering](PumpLine& line, const ProtocolMessage& request) {
        if (!answering || request.object != 0) {
            return;
        }
        const QByteArray payload =
            request.attribute == Version ? QByteArray::fromHex("010203") : QByteArray();
        line.send(PumpLine::answer(request, Type::AckStatus, Status::Success, payload));
    });
}

int count(const PumpLine& pump, Attribute attribute) {
    return pump.countRequests(0, 0, attribute,
                              attribute == Start ? Operation::Set : Operation::Get);
}

} // namespace

class AppEndToEndTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir mHome;
    QProcess mApp;

    void start(const QStringList& ports) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), mHome.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), mHome.path());
        environment.remove(QStringLiteral("BRACKWATER_LINK_PORTS"));
        mApp.setProcessEnvironment(environment);
        mApp.setProcessChannelMode(QProcess::MergedChannels);
        QStringList arguments;
        for (const QString& port : ports) {
            arguments << QStringLiteral("--port") << port;
        }
        mApp.start(QStringLiteral(BWL_APP_PATH), arguments);
        QVERIFY(mApp.waitForStarted());
    }

private slots:
    void cleanup() {
        if (mApp.state() != QProcess::NotRunning) {
            mApp.kill();
            mApp.waitForFinished();
        }
    }

    void connects_keepsAlive_recoversFromSilenceAndFromAVanishedPort() {
        PumpLine first;
        PumpLine second;
        bool firstAnswers = true;
        bool secondAnswers = false;
        answerWhile(first, firstAnswers);
        answerWhile(second, secondAnswers);
        start({first.portName(), second.portName()});

        // Connects on the first port and pings about once a second.
        QTRY_COMPARE_WITH_TIMEOUT(count(first, Start), 1, 5000);
        QCOMPARE(first.received().at(1).payload[0], 0xE8);
        QElapsedTimer clock;
        clock.start();
        QList<qint64> pingTimes;
        connect(&first, &PumpLine::messageReceived, this, [&] {
            const auto& request = first.received().back();
            if (request.object == 0 && request.attribute == KeepAlive) {
                pingTimes << clock.elapsed();
            }
        });
        QTRY_VERIFY_WITH_TIMEOUT(pingTimes.size() >= 3, 5000);
        for (int i = 1; i < 3; ++i) {
            const qint64 gap = pingTimes[i] - pingTimes[i - 1];
            QVERIFY2(gap > 700 && gap < 1300, qPrintable(QString::number(gap)));
        }
        disconnect(&first, &PumpLine::messageReceived, this, nullptr);

        // A silent pump is given up and found again.
        firstAnswers = false;
        QTRY_VERIFY_WITH_TIMEOUT(count(second, Version) >= 1, 5000);
        firstAnswers = true;
        QTRY_COMPARE_WITH_TIMEOUT(count(first, Start), 2, 5000);

        // The first port vanishes: the scan moves on and finds the pump on the second.
        first.pty().closeMaster();
        secondAnswers = true;
        QTRY_COMPARE_WITH_TIMEOUT(count(second, Start), 1, 8000);
        const int pingsBefore = count(second, KeepAlive);
        QTRY_VERIFY_WITH_TIMEOUT(count(second, KeepAlive) > pingsBefore, 2500);
        QCOMPARE(mApp.state(), QProcess::Running);

        const QByteArray log = mApp.readAll();
        QVERIFY2(log.contains("protocolObject_SessionStarted"), log.constData());
        QVERIFY(log.contains("keepAliveTimeout, no response, disconnecting"));
    }
};

QTEST_GUILESS_MAIN(AppEndToEndTest)
#include "AppEndToEndTest.moc"
