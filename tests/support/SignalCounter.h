#pragma once

#include <QObject>

namespace testsupport {

/// Counts a signal on the test's thread, also one emitted on another thread (a pump value on the
/// comms thread): the count moves when the queued call is delivered.
class SignalCounter : public QObject {
public:
    template <typename Sender, typename Owner, typename... Args>
    SignalCounter(Sender* sender, void (Owner::*signal)(Args...)) {
        connect(static_cast<Owner*>(sender), signal, this, [this](Args...) { ++count; });
    }
    int count = 0;
};

} // namespace testsupport
