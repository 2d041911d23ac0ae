#include "ReplayScript.h"

#include <QFile>

#include <array>

namespace simulator {

namespace {

constexpr char kHeader[] = "# Brackwater Link session recording";
// Message types: a request, and the answers that carry an id back.
constexpr char kRequest = 0;
constexpr char kAckStatus = 1;
constexpr char kNak = 2;
constexpr char kNakStatus = 3;

bool isAnswer(const QByteArray& message) {
    const char type = message.size() >= 2 ? message[1] : -1;
    return type == kAckStatus || type == kNak || type == kNakStatus;
}

bool isRequest(const QByteArray& message) {
    return message.size() >= 6 && message[1] == kRequest;
}

// "00 01 ab" -> bytes; false for anything that is not pairs of hex digits.
bool readHex(const QList<QByteArray>& words, qsizetype from, QByteArray& out) {
    out.clear();
    for (qsizetype i = from; i < words.size(); ++i) {
        const QByteArray& word = words[i];
        if (word == "|") {
            break;
        }
        bool ok = false;
        const uint value = word.toUInt(&ok, 16);
        if (!ok || word.size() != 2) {
            return false;
        }
        out.append(static_cast<char>(value));
    }
    return !out.isEmpty();
}

} // namespace

bool ReplayScript::startsSession(const QByteArray& message) {
    // The protocol object (0, instance 0), attribute 2 "start session", operation Set (2).
    return isRequest(message) && message[2] == 0 && message[3] == 0 && message[4] == 2 &&
           message[5] == 2;
}

const QList<ReplayScript::Answer>*
ReplayScript::answersTo(const QByteArray& requestWithoutId) const {
    const auto found = mAnswers.constFind(requestWithoutId);
    return found == mAnswers.constEnd() ? nullptr : &found.value();
}

const QList<ReplayScript::Answer>*
ReplayScript::answersToAddress(const QByteArray& requestWithoutId) const {
    const auto found = mAnswersByAddress.constFind(requestWithoutId.left(kAddressLength));
    return found == mAnswersByAddress.constEnd() ? nullptr : &found.value();
}

std::optional<ReplayScript> ReplayScript::load(const QString& path, QString& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return std::nullopt;
    }
    return parse(file.readAll(), error);
}

std::optional<ReplayScript> ReplayScript::parse(const QByteArray& text, QString& error) {
    ReplayScript script;
    const QList<QByteArray> lines = text.split('\n');
    if (lines.isEmpty() || !lines.front().startsWith(kHeader)) {
        error = QStringLiteral("not a session recording (its first line must begin \"%1\")")
                    .arg(QLatin1String(kHeader));
        return std::nullopt;
    }

    // Each id's latest request: its key, its time, and which of the key's answers is its own.
    struct Outstanding {
        QByteArray key;
        qint64 sentAt = 0;
        qsizetype answer = 0;
        qsizetype alike = 0;
    };
    std::array<Outstanding, 256> outstanding{};
    qsizetype session = -1;
    qint64 sessionStart = 0;

    for (qsizetype number = 1; number < lines.size(); ++number) {
        const QByteArray line = lines[number].trimmed();
        if (line.isEmpty() || line.startsWith('#')) {
            continue;
        }
        const QList<QByteArray> words = line.split(' ');
        bool timeOk = false;
        const qint64 time = words[0].toLongLong(&timeOk);
        if (!timeOk || words.size() < 2) {
            error = QStringLiteral("line %1: expected a time and an event").arg(number + 1);
            return std::nullopt;
        }
        const QByteArray& event = words[1];
        QByteArray message;
        if ((event == "tx" || event == "rx") && !readHex(words, 2, message)) {
            error = QStringLiteral("line %1: expected message bytes in hex").arg(number + 1);
            return std::nullopt;
        }
        const auto id = message.isEmpty()
                            ? 0u
                            : static_cast<std::size_t>(static_cast<unsigned char>(message[0]));
        if (event == "tx" && isRequest(message)) {
            QList<Answer>& answers = script.mAnswers[message.mid(1)];
            answers.append(Answer{});
            QList<Answer>& alike = script.mAnswersByAddress[message.mid(1, kAddressLength)];
            alike.append(Answer{});
            outstanding[id] = {message.mid(1), time, answers.size() - 1, alike.size() - 1};
            if (startsSession(message)) {
                script.mSessions.append(Session{});
                session = script.mSessions.size() - 1;
                sessionStart = time;
            }
        } else if (event == "rx" && isAnswer(message)) {
            Outstanding& request = outstanding[id];
            if (request.key.isEmpty()) {
                continue; // an answer to a request from before the recording began
            }
            const Frame frame{static_cast<int>(time - request.sentAt), message};
            script.mAnswers[request.key][request.answer].frames.append(frame);
            script.mAnswersByAddress[request.key.left(kAddressLength)][request.alike].frames.append(
                frame);
            ++script.mAnswerCount;
        } else if ((event == "rx" || event == "rx-malformed") && session >= 0) {
            script.mSessions[session].frames.append(
                Frame{static_cast<int>(time - sessionStart), message});
        }
    }
    return script;
}

} // namespace simulator
