#include "SimulatorRig.h"

#include <QSignalSpy>

namespace simtest {

SimulatorRig::SimulatorRig(const QStringList& arguments) {
    QStringList full{QStringLiteral("pump-simulator"), QStringLiteral("--no-console")};
    full += arguments;
    if (!arguments.contains(QStringLiteral("--seed"))) {
        full += {QStringLiteral("--seed"), QStringLiteral("1")};
    }
    QString error;
    bool help = false;
    const auto parsed = simulator::SimulatorOptions::parse(full, error, help);
    if (!parsed) {
        qWarning("Options refused: %s", qPrintable(error));
        return;
    }
    mOptions = *parsed;
    mSimulator = std::make_unique<simulator::PumpSimulator>(mOptions);
    QString path;
    if (!mSimulator->start(path, error)) {
        qWarning("Simulator did not start: %s", qPrintable(error));
        return;
    }
    mOk = mApp.open(path);
}

QByteArray SimulatorRig::ask(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                             Operation operation, const QByteArray& payload) {
    const auto isAnswer = [](const QByteArray& raw) { return raw.size() >= 2 && raw.at(1) != 0; };
    const qsizetype answersBefore = mApp.answers.size();
    qsizetype rawAnswersBefore = 0;
    for (const QByteArray& raw : mApp.rawMessages) {
        rawAnswersBefore += isAnswer(raw) ? 1 : 0;
    }
    if (!mApp.request(object, instance, attribute, operation, payload)) {
        return {};
    }
    QSignalSpy spy(&mApp, &AppSide::answered);
    while (mApp.answers.size() == answersBefore) {
        if (!spy.wait(3000)) {
            return {};
        }
    }
    QByteArray last;
    qsizetype rawAnswers = 0;
    for (const QByteArray& raw : mApp.rawMessages) {
        if (isAnswer(raw)) {
            ++rawAnswers;
            last = raw;
        }
    }
    return rawAnswers > rawAnswersBefore ? last : QByteArray();
}

QString SimulatorRig::askHex(std::uint8_t object, std::uint8_t instance, std::uint8_t attribute,
                             Operation operation, const QByteArray& payload) {
    return hex(ask(object, instance, attribute, operation, payload));
}

bool SimulatorRig::startSession() {
    return askHex(0, 0, 2, Operation::Set, le<std::uint16_t>(1000)) == QLatin1String("00 01 00");
}

} // namespace simtest
