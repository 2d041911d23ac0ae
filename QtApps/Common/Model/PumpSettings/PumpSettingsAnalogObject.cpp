#include "PumpSettingsAnalogObject.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"
#include "QtApps/Common/Model/PumpValues/WireConversions.h"

#include <limits>

namespace pumpSettings::analog {

using communication::objects::QSpeedRangeProfile;
using halyard::pump::ControlInput;

namespace {

constexpr QLatin1String kControlInput("controlInput");
constexpr QLatin1String kEnableLineSpeed("enableLineSpeedDrpm");
constexpr QLatin1String kCurrent("currentInputSettings");
constexpr QLatin1String kVoltage("voltageInputSettings");
constexpr QLatin1String kFrequency("frequencyInputSettings");
constexpr QLatin1String kMinSpeed("minDrpm");
constexpr QLatin1String kMaxSpeed("maxDrpm");
constexpr QLatin1String kMinInput("minInput");
constexpr QLatin1String kMaxInput("maxInput");
constexpr QLatin1String kSamples("filterSampleCount");

constexpr double kMaxU32 = std::numeric_limits<std::uint32_t>::max();

QString pathOf(QLatin1String group, QLatin1String key) {
    return QString(group) + QLatin1Char('.') + QString(key);
}

QStringList controlInputTexts() {
    QStringList texts;
    for (int code = 0; code < static_cast<int>(ControlInput::Count); ++code) {
        texts.append(communication::objects::ControlInputText(static_cast<ControlInput>(code)));
    }
    return texts;
}

/// The fields of one input's settings; `withSamples` for the filtered inputs.
std::vector<FieldSpec> inputFields(Unit inputUnit, bool withSamples) {
    std::vector<FieldSpec> fields{
        FieldSpec::count(kMinSpeed, QT_TRANSLATE_NOOP("SectionLayout", "speed at minimum input"),
                         Unit::Drpm, kMaxU32),
        FieldSpec::count(kMaxSpeed, QT_TRANSLATE_NOOP("SectionLayout", "speed at maximum input"),
                         Unit::Drpm, kMaxU32),
        FieldSpec::count(kMinInput, QT_TRANSLATE_NOOP("SectionLayout", "minimum input"), inputUnit,
                         kMaxU32),
        FieldSpec::count(kMaxInput, QT_TRANSLATE_NOOP("SectionLayout", "maximum input"), inputUnit,
                         kMaxU32),
    };
    if (withSamples) {
        fields.push_back(FieldSpec::count(
            kSamples, QT_TRANSLATE_NOOP("SectionLayout", "filter samples"), Unit::None, kMaxU32));
    }
    return fields;
}

QJsonValue count(std::uint32_t value) {
    return QJsonValue(static_cast<qint64>(value));
}

std::uint32_t countOf(const FieldValues& file, const QString& path) {
    return static_cast<std::uint32_t>(file.value(path).toInteger());
}

/// A speed range value as the four fields of its input's object. The file does not hold the
/// hysteresis: a load sets the one the pump has.
template <typename Value>
SettingBinding* speedRangeBinding(Value& value, QLatin1String group, QObject* parent) {
    return new ValueBinding<Value, QSpeedRangeProfile>(
        value, &Value::getSpeedRange, &Value::getSpeedRangeResponse, &Value::setSpeedRange,
        [group](const QSpeedRangeProfile& profile) {
            return FieldValues{{pathOf(group, kMinSpeed), count(profile.MinimumSpeedDrpm)},
                               {pathOf(group, kMaxSpeed), count(profile.MaximumSpeedDrpm)},
                               {pathOf(group, kMinInput), count(profile.MinimumInput)},
                               {pathOf(group, kMaxInput), count(profile.MaximumInput)}};
        },
        [group](const FieldValues& file, const QSpeedRangeProfile& present) {
            QSpeedRangeProfile profile = present;
            profile.MinimumSpeedDrpm = countOf(file, pathOf(group, kMinSpeed));
            profile.MaximumSpeedDrpm = countOf(file, pathOf(group, kMaxSpeed));
            profile.MinimumInput = countOf(file, pathOf(group, kMinInput));
            profile.MaximumInput = countOf(file, pathOf(group, kMaxInput));
            return profile;
        },
        parent);
}

template <typename Value>
SettingBinding* samplesBinding(Value& value, QLatin1String group, QObject* parent) {
    const QString path = pathOf(group, kSamples);
    return new ValueBinding<Value, size_t>(
        value, &Value::getNumSamples, &Value::numSamplesChanged, &Value::setNumSamples,
        [path](const size_t& samples) {
            return FieldValues{{path, count(communication::wire::clamped<std::uint32_t>(samples))}};
        },
        [path](const FieldValues& file, const size_t& /*present*/) {
            return static_cast<size_t>(countOf(file, path));
        },
        parent);
}

} // namespace

const SectionLayout& PumpSettingsAnalogObject::layout() {
    static const SectionLayout layout(
        {
            FieldSpec::choice(kControlInput, QT_TRANSLATE_NOOP("SectionLayout", "Control input"),
                              controlInputTexts()),
            FieldSpec::count(kEnableLineSpeed,
                             QT_TRANSLATE_NOOP("SectionLayout", "Enable-line speed"), Unit::Drpm,
                             kMaxU32),
        },
        {
            {kCurrent, QT_TRANSLATE_NOOP("SectionLayout", "Current input"),
             inputFields(Unit::Microamperes, true)},
            {kVoltage, QT_TRANSLATE_NOOP("SectionLayout", "Voltage input"),
             inputFields(Unit::Millivolts, true)},
            {kFrequency, QT_TRANSLATE_NOOP("SectionLayout", "Frequency input"),
             inputFields(Unit::Hertz, false)},
        });
    return layout;
}

PumpSettingsAnalogObject::PumpSettingsAnalogObject(communication::PumpValues& values,
                                                   QObject* parent)
    : PumpSettingsSection(QStringLiteral("analog"), layout(), parent) {
    using namespace communication;
    addBinding(new ValueBinding<PumpControlInput, ControlInput>(
        values.get<PumpControlInput>(), &PumpControlInput::getControlInput,
        &PumpControlInput::getControlInputResponse, &PumpControlInput::setControlInput,
        [](const ControlInput& input) {
            // The proxy passes only the table's codes; anything else would be no text of the
            // table, which a load then refuses rather than guessing.
            const bool known = wire::codeOf(input) < wire::codeOf(ControlInput::Count);
            return FieldValues{
                {kControlInput, known ? objects::ControlInputText(input) : QString()}};
        },
        [](const FieldValues& file, const ControlInput& /*present*/) {
            // The layout let only the table's texts through.
            return static_cast<ControlInput>(
                controlInputTexts().indexOf(file.value(kControlInput).toString()));
        },
        this));
    addBinding(new ValueBinding<PumpEnableLineSpeed, uint32_t>(
        values.get<PumpEnableLineSpeed>(), &PumpEnableLineSpeed::getEnableLineSpeed,
        &PumpEnableLineSpeed::getEnableLineSpeedResponse, &PumpEnableLineSpeed::setEnableLineSpeed,
        [](const uint32_t& speedDrpm) {
            return FieldValues{{kEnableLineSpeed, count(speedDrpm)}};
        },
        [](const FieldValues& file, const uint32_t& /*present*/) {
            return countOf(file, kEnableLineSpeed);
        },
        this));
    addBinding(speedRangeBinding(values.get<PumpCurrentSpeedRange>(), kCurrent, this));
    addBinding(speedRangeBinding(values.get<PumpVoltageSpeedRange>(), kVoltage, this));
    addBinding(speedRangeBinding(values.get<PumpFrequencySpeedRange>(), kFrequency, this));
    addBinding(samplesBinding(values.get<PumpAnalogFilterNumSamplesCurrent>(), kCurrent, this));
    addBinding(samplesBinding(values.get<PumpAnalogFilterNumSamplesVoltage>(), kVoltage, this));
}

} // namespace pumpSettings::analog
