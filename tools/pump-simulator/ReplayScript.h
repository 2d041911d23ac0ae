#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>

namespace simulator {

/// The pump's side of a session recording (docs/session-recording.md), arranged for playing it
/// back: what the pump answered to each kind of request, and what it sent of its own accord
/// during each session.
///
/// Answers are keyed by the request's bytes without its id (type, object, instance, attribute,
/// operation, payload): the application numbers its requests afresh on every run, so the
/// replayed answer takes the id of the request it answers. Each key keeps its answers in the
/// recorded order, each with its delay after the request; a request the pump left unanswered
/// keeps an empty entry, so the replay lets it time out again. The answers are kept by address
/// alone (without the payload) as well, for a request whose payload the recording never saw.
///
/// What the pump sent unasked (value updates, its own requests, malformed frames) belongs to the
/// session it came in: the time from the application's session start (object 0, instance 0,
/// attribute 2, Set) is kept, and the replay plays it from the matching session start of its
/// own. Frames before the first session start are not replayed.
class ReplayScript {
public:
    /// One frame the pump sent: message bytes (id first), or empty for a malformed frame.
    struct Frame {
        int delayMs = 0;
        QByteArray message;
    };
    /// The pump's frames in answer to one request, empty when it did not answer.
    struct Answer {
        QList<Frame> frames;
    };
    /// What the pump sent unasked during one session, the delays counted from its start.
    struct Session {
        QList<Frame> frames;
    };

    /// Reads a recording; nothing, with `error` saying why and where, for a file that is not one.
    static std::optional<ReplayScript> load(const QString& path, QString& error);
    /// The same from the file's text (for tests).
    static std::optional<ReplayScript> parse(const QByteArray& text, QString& error);

    /// The bytes of a request after its id that say what it asks of whom: type, object,
    /// instance, attribute and operation.
    static constexpr qsizetype kAddressLength = 5;

    /// The recorded answers to requests with these bytes (without the id), in order; null when
    /// the recording has none.
    const QList<Answer>* answersTo(const QByteArray& requestWithoutId) const;
    /// The recorded answers to every request of the same address, whatever its payload.
    const QList<Answer>* answersToAddress(const QByteArray& requestWithoutId) const;
    const QList<Session>& sessions() const { return mSessions; }
    int requestKinds() const { return static_cast<int>(mAnswers.size()); }
    int answerCount() const { return mAnswerCount; }

    /// Whether a message from the application starts a session.
    static bool startsSession(const QByteArray& message);

private:
    QHash<QByteArray, QList<Answer>> mAnswers;
    QHash<QByteArray, QList<Answer>> mAnswersByAddress;
    QList<Session> mSessions;
    int mAnswerCount = 0;
};

} // namespace simulator
