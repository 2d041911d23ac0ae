#include "PumpSettingsOemPumpObject.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/EnumerationTexts.h"
#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <cmath>
#include <limits>

namespace pumpSettings::oemPump {

using communication::objects::PumpDetails;

namespace {

constexpr QLatin1String kType("type");
constexpr QLatin1String kMotor("motor");
constexpr QLatin1String kHead("head");
constexpr QLatin1String kAcceleration("accelRpmPerSecond");
constexpr QLatin1String kDeceleration("decelRpmPerSecond");
constexpr QLatin1String kPrimeSpeed("primeSpeed");

// The pump holds acceleration and deceleration as floats; the file as whole rpm per second.
// Up to 2^24 every whole number is a float exactly, so a loaded figure reads back as written.
constexpr double kMaxCeleration = 16777216.0;
constexpr double kMaxU32 = std::numeric_limits<std::uint32_t>::max();

qint64 wholeRpmPerSecond(float rpmPerSecond) {
    if (!std::isfinite(rpmPerSecond) || rpmPerSecond <= 0.0F) {
        return 0;
    }
    return std::llround(std::min(static_cast<double>(rpmPerSecond), kMaxCeleration));
}

QString typeText(const PumpDetails& details) {
    return communication::objects::DeviceTypeText(details.pumpType);
}
QString motorText(const PumpDetails& details) {
    return communication::objects::MotorTypeText(details.motorType);
}
QString headText(const PumpDetails& details) {
    return communication::objects::PumpHeadCatalogueEntry(details.headType).name;
}

/// A float value of the motor (acceleration or deceleration) as one field of whole rpm per
/// second.
template <typename Value>
SettingBinding* celerationBinding(Value& value, void (Value::*get)(),
                                  void (Value::*answered)(float), void (Value::*set)(float),
                                  QLatin1String key, QObject* parent) {
    return new ValueBinding<Value, float>(
        value, get, answered, set,
        [key](const float& rpmPerSecond) {
            return FieldValues{{key, QJsonValue(wholeRpmPerSecond(rpmPerSecond))}};
        },
        [key](const FieldValues& file, const float& /*present*/) {
            return static_cast<float>(file.value(key).toInteger());
        },
        parent);
}

} // namespace

const SectionLayout& PumpSettingsOemPumpObject::layout() {
    static const SectionLayout layout({
        FieldSpec::text(kType, QT_TRANSLATE_NOOP("SectionLayout", "Device type")),
        FieldSpec::text(kMotor, QT_TRANSLATE_NOOP("SectionLayout", "Motor type")),
        FieldSpec::text(kHead, QT_TRANSLATE_NOOP("SectionLayout", "Pump head")),
        FieldSpec::count(kAcceleration, QT_TRANSLATE_NOOP("SectionLayout", "Acceleration"),
                         Unit::RpmPerSecond, kMaxCeleration),
        FieldSpec::count(kDeceleration, QT_TRANSLATE_NOOP("SectionLayout", "Deceleration"),
                         Unit::RpmPerSecond, kMaxCeleration),
        FieldSpec::count(kPrimeSpeed, QT_TRANSLATE_NOOP("SectionLayout", "Prime speed"), Unit::Drpm,
                         kMaxU32),
    });
    return layout;
}

PumpSettingsOemPumpObject::PumpSettingsOemPumpObject(communication::PumpValues& values,
                                                     const PumpDetails& details, QObject* parent)
    : PumpSettingsSection(QStringLiteral("oemPump"), layout(), parent)
    , mDetails(details) {
    using namespace communication;
    setKnown(kType, typeText(details));
    setKnown(kMotor, motorText(details));
    setKnown(kHead, headText(details));
    addBinding(celerationBinding(values.get<PumpAcceleration>(), &PumpAcceleration::getAcceleration,
                                 &PumpAcceleration::getAccelerationResponse,
                                 &PumpAcceleration::setAcceleration, kAcceleration, this));
    addBinding(celerationBinding(values.get<PumpDeceleration>(), &PumpDeceleration::getDeceleration,
                                 &PumpDeceleration::getDecelerationResponse,
                                 &PumpDeceleration::setDeceleration, kDeceleration, this));
    addBinding(new ValueBinding<PumpPrimeSpeed, uint32_t>(
        values.get<PumpPrimeSpeed>(), &PumpPrimeSpeed::getPrimeSpeed,
        &PumpPrimeSpeed::getPrimeSpeedResponse, &PumpPrimeSpeed::setPrimeSpeed,
        [](const uint32_t& speedDrpm) {
            return FieldValues{{kPrimeSpeed, QJsonValue(static_cast<qint64>(speedDrpm))}};
        },
        [](const FieldValues& file, const uint32_t& /*present*/) {
            return static_cast<uint32_t>(file.value(kPrimeSpeed).toInteger());
        },
        this));
}

PumpSettingsResultType PumpSettingsOemPumpObject::checkCompatible(const FieldValues& file,
                                                                  const PumpDetails& details) {
    const bool fits = file.value(kType).toString() == typeText(details) &&
                      file.value(kMotor).toString() == motorText(details) &&
                      file.value(kHead).toString() == headText(details);
    return fits ? PumpSettingsResultType::Success
                : PumpSettingsResultType::IncompatiblePumpSettings;
}

PumpSettingsResultType PumpSettingsOemPumpObject::checkFile(const FieldValues& file) const {
    const PumpSettingsResultType result = checkCompatible(file, mDetails);
    if (result != PumpSettingsResultType::Success) {
        BWL_LOG_WARN("checkFile",
                     QStringLiteral("The file is for a \"%1\" pump with motor \"%2\" and head "
                                    "\"%3\"; this pump is \"%4\" with motor \"%5\" and head \"%6\"")
                         .arg(file.value(kType).toString(), file.value(kMotor).toString(),
                              file.value(kHead).toString(), typeText(mDetails), motorText(mDetails),
                              headText(mDetails)));
    }
    return result;
}

} // namespace pumpSettings::oemPump
