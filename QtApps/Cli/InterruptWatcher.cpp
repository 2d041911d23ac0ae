#include "InterruptWatcher.h"

#include <csignal>

namespace cli {

namespace {

volatile std::sig_atomic_t gInterrupted = 0;

void onInterrupt(int signal) {
    gInterrupted = 1;
    // The next one is not caught: a program that does not stop can still be stopped.
    std::signal(signal, SIG_DFL);
}

} // namespace

InterruptWatcher::InterruptWatcher(QObject* parent) : QObject(parent) {
    gInterrupted = 0;
    std::signal(SIGINT, onInterrupt);
    std::signal(SIGTERM, onInterrupt);
    connect(&mPoll, &QTimer::timeout, this, [this] {
        if (gInterrupted != 0) {
            gInterrupted = 0;
            emit interrupted();
        }
    });
    mPoll.start(kPollIntervalMs);
}

InterruptWatcher::~InterruptWatcher() {
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

} // namespace cli
