#pragma once

#include "ReplayScript.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>

#include <map>

namespace simulator {

class PumpLink;

/// Plays the pump's side of a session recording back to the application, in place of the
/// simulated pump's objects: each request gets the answer the pump gave to the same request
/// (the n-th alike request the n-th answer, then the last answer again), after the recorded
/// delay and under the request's id; a request the pump left unanswered is left unanswered; a
/// request the recording never saw is not answered. Each session the application starts replays
/// the pump's unasked frames of the matching recorded session on their recorded timeline.
/// Everything goes out through the link, so latency, fault injection and the frame log still
/// apply.
class ReplayPump : public QObject {
    Q_OBJECT

public:
    ReplayPump(ReplayScript script, PumpLink& link, QObject* parent = nullptr);

    /// A message from the application (message bytes, id first).
    void handleMessage(const QByteArray& message);

    /// Frames sent so far: answers, and unasked frames.
    int answersSent() const { return mAnswersSent; }
    int unaskedSent() const { return mUnaskedSent; }

private:
    struct Due {
        QByteArray message; // empty: a malformed frame
        bool unasked = false;
    };

    void schedule(int delayMs, const QByteArray& message, bool unasked);
    void sendDue();
    void startSession();

    ReplayScript mScript;
    PumpLink& mLink;
    QElapsedTimer mClock;
    QTimer mTimer;
    std::multimap<qint64, Due> mQueue;
    QHash<QByteArray, int> mNextAnswer;
    int mSessionsStarted = 0;
    int mAnswersSent = 0;
    int mUnaskedSent = 0;
};

} // namespace simulator
