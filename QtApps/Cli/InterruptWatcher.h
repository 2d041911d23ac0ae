#pragma once

#include <QObject>
#include <QTimer>

namespace cli {

/// Turns Ctrl-C (SIGINT) and SIGTERM into a signal on the main thread, so that a command can
/// stop its session before the program ends. A second Ctrl-C ends the program at once, as usual.
///
/// Only the C++ standard's signal() is used (it exists on every platform); the handler just sets
/// a flag, which a timer on the main thread reads.
class InterruptWatcher final : public QObject {
    Q_OBJECT

public:
    static constexpr int kPollIntervalMs = 50;

    explicit InterruptWatcher(QObject* parent = nullptr);
    ~InterruptWatcher() override;

signals:
    void interrupted();

private:
    QTimer mPoll;
};

} // namespace cli
