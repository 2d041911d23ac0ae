#pragma once

#include "SectionLayout.h"

#include "QtApps/Common/Controllers/QueuedCall.h"
#include "QtApps/Common/Model/PumpValues/PumpValueBase.h"

#include <QObject>

#include <functional>
#include <optional>

namespace pumpSettings {

/// One pump value as a settings section sees it: the fields of the file it holds, read with a
/// Get, and written with a Set that the value acknowledges and then reads back. Lives on the
/// user-interface thread; the value lives where the proxies run and is reached only by queued
/// calls and cross-thread signals.
///
/// After apply() only an answer that follows the Set's acknowledgement counts, so an answer
/// already on its way before the pump took the Set is never mistaken for the read-back.
class SettingBinding : public QObject {
    Q_OBJECT

public:
    /// Reads the value (for a save, a preview, and before a load's Sets).
    void request();
    /// Sets the value from the file's fields, and waits for the read-back.
    void apply(const FieldValues& file);
    /// Whether the value has answered the last request, or been read back after the last apply.
    bool complete() const { return mPhase == Phase::Answered; }
    /// The fields of the value's last answer.
    const FieldValues& answer() const { return mAnswer; }

signals:
    void answered();

protected:
    explicit SettingBinding(communication::PumpValueBase& value, QObject* parent);

    /// Hands an answer of the value on, as fields.
    void take(FieldValues fields);

private:
    enum class Phase { Idle, Reading, AwaitingAcknowledgement, ReadingBack, Answered };

    virtual void sendGet() = 0;
    virtual void sendSet(const FieldValues& file) = 0;
    void onSetAcknowledged();

    Phase mPhase = Phase::Idle;
    FieldValues mAnswer;
};

/// The binding of a value whose answer signal and set slot carry one `Answer`. `toFields` turns
/// an answer into fields; `fromFields` builds what to set from the file's fields and the
/// value's present answer (which keeps what the file does not hold, such as a speed range's
/// hysteresis).
template <typename Value, typename Answer>
class ValueBinding final : public SettingBinding {
public:
    using ToFields = std::function<FieldValues(const Answer&)>;
    using FromFields = std::function<Answer(const FieldValues& file, const Answer& present)>;

    template <typename GetOwner, typename SignalOwner, typename SetOwner, typename SetParam>
    ValueBinding(Value& value, void (GetOwner::*get)(), void (SignalOwner::*answerSignal)(Answer),
                 void (SetOwner::*set)(SetParam), ToFields toFields, FromFields fromFields,
                 QObject* parent)
        : SettingBinding(value, parent)
        , mGet([&value, get] { communication::callQueued(value, get); })
        , mSet([&value, set](const Answer& wanted) {
            communication::callQueued(value, set, wanted);
        })
        , mToFields(std::move(toFields))
        , mFromFields(std::move(fromFields)) {
        connect(
            static_cast<SignalOwner*>(&value), answerSignal, this,
            [this](Answer answer) {
                mPresent = answer;
                take(mToFields(answer));
            },
            Qt::QueuedConnection);
    }

private:
    void sendGet() override { mGet(); }
    void sendSet(const FieldValues& file) override {
        mSet(mFromFields(file, mPresent.value_or(Answer{})));
    }

    std::function<void()> mGet;
    std::function<void(const Answer&)> mSet;
    ToFields mToFields;
    FromFields mFromFields;
    std::optional<Answer> mPresent;
};

} // namespace pumpSettings
