#pragma once

#include <QObject>
#include <QSignalSpy>

#include <tuple>
#include <type_traits>
#include <vector>

/// Relays one proxy signal to the test thread. A QSignalSpy on the proxy itself would record on
/// the comms thread, where the proxies emit, while the test reads it on its own; here the
/// delivery is queued, as it is to the application's user-interface thread, and the spy counts
/// the relay's `heard` on the test thread.
class SignalRelay : public QObject {
    Q_OBJECT

signals:
    void heard();
};

/// Every emission of one signal, with its arguments, in the order they arrived.
template <typename... Args>
class Heard final : public SignalRelay {
public:
    using Values = std::tuple<std::decay_t<Args>...>;

    template <typename Sender, typename Owner>
    Heard(Sender& sender, void (Owner::*signal)(Args...)) : mSpy(this, &SignalRelay::heard) {
        connect(&static_cast<Owner&>(sender), signal, this, [this](Args... args) {
            mValues.emplace_back(args...);
            emit heard();
        });
    }

    int count() const { return static_cast<int>(mSpy.count()); }
    bool any() const { return !mValues.empty(); }
    const Values& last() const { return mValues.back(); }
    const std::vector<Values>& all() const { return mValues; }
    /// One argument of the latest emission.
    template <std::size_t Index = 0>
    const auto& lastArg() const {
        return std::get<Index>(mValues.back());
    }

private:
    std::vector<Values> mValues;
    QSignalSpy mSpy;
};

template <typename Sender, typename Owner, typename... Args>
Heard(Sender&, void (Owner::*)(Args...)) -> Heard<Args...>;
