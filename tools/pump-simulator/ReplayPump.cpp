#include "ReplayPump.h"

#include "PumpLink.h"

#include <QDebug>

namespace simulator {

ReplayPump::ReplayPump(ReplayScript script, PumpLink& link, QObject* parent)
    : QObject(parent)
    , mScript(std::move(script))
    , mLink(link) {
    mClock.start();
    mTimer.setSingleShot(true);
    mTimer.setTimerType(Qt::PreciseTimer);
    connect(&mTimer, &QTimer::timeout, this, &ReplayPump::sendDue);
}

void ReplayPump::handleMessage(const QByteArray& message) {
    // Only requests are answered; the application's acknowledgements of the pump's frames
    // need nothing.
    if (message.size() < 6 || message[1] != 0) {
        return;
    }
    if (ReplayScript::startsSession(message)) {
        startSession();
    }
    // The very request if the recording has it, else any request of the same address.
    QByteArray key = message.mid(1);
    const QList<ReplayScript::Answer>* answers = mScript.answersTo(key);
    if (answers == nullptr) {
        key.truncate(ReplayScript::kAddressLength);
        answers = mScript.answersToAddress(key);
    }
    if (answers == nullptr) {
        qWarning("Replay: the recording has no answer to %s", qPrintable(message.toHex(' ')));
        return;
    }
    int& next = mNextAnswer[key];
    const ReplayScript::Answer* answer = nullptr;
    if (next < answers->size()) {
        answer = &answers->at(next++);
    } else {
        // Past the recording: the pump answers as it last did, so it stays usable.
        for (auto it = answers->crbegin(); it != answers->crend(); ++it) {
            if (!it->frames.isEmpty()) {
                answer = &*it;
                break;
            }
        }
    }
    if (answer == nullptr) {
        return;
    }
    for (const ReplayScript::Frame& frame : answer->frames) {
        QByteArray reply = frame.message;
        reply[0] = message[0]; // the id of this run's request
        schedule(frame.delayMs, reply, false);
    }
}

void ReplayPump::startSession() {
    // The frames of the session before are history.
    for (auto it = mQueue.begin(); it != mQueue.end();) {
        it = it->second.unasked ? mQueue.erase(it) : std::next(it);
    }
    const int index = mSessionsStarted++;
    if (index >= mScript.sessions().size()) {
        qInfo("Replay: session %d starts, the recording has %d; nothing is streamed", index + 1,
              static_cast<int>(mScript.sessions().size()));
        return;
    }
    qInfo("Replay: session %d starts", index + 1);
    for (const ReplayScript::Frame& frame : mScript.sessions().at(index).frames) {
        schedule(frame.delayMs, frame.message, true);
    }
}

void ReplayPump::schedule(int delayMs, const QByteArray& message, bool unasked) {
    const qint64 due = mClock.elapsed() + qMax(0, delayMs);
    mQueue.emplace(due, Due{message, unasked});
    if (mQueue.begin()->first == due) {
        mTimer.start(static_cast<int>(qMax<qint64>(0, due - mClock.elapsed())));
    }
}

void ReplayPump::sendDue() {
    const qint64 now = mClock.elapsed();
    while (!mQueue.empty() && mQueue.begin()->first <= now) {
        const Due due = mQueue.begin()->second;
        mQueue.erase(mQueue.begin());
        if (due.message.isEmpty()) {
            mLink.sendMalformedFrame();
        } else {
            mLink.PayloadOut(reinterpret_cast<const std::uint8_t*>(due.message.constData()),
                             static_cast<std::size_t>(due.message.size()));
        }
        ++(due.unasked ? mUnaskedSent : mAnswersSent);
    }
    if (!mQueue.empty()) {
        mTimer.start(static_cast<int>(qMax<qint64>(0, mQueue.begin()->first - now)));
    }
}

} // namespace simulator
