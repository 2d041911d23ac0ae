#include "PumpSettingsSection.h"

#include "QtApps/Common/Logger/Log.h"

#include <algorithm>

namespace pumpSettings {

bool sameSetting(const QJsonValue& a, const QJsonValue& b) {
    if (a.isDouble() && b.isDouble()) {
        return a.toDouble() == b.toDouble();
    }
    return a == b;
}

PumpSettingsSection::PumpSettingsSection(QString name, const SectionLayout& layout, QObject* parent)
    : PumpSettingsObjectInterface(parent)
    , mName(std::move(name))
    , mLayout(layout) {}

void PumpSettingsSection::addBinding(SettingBinding* binding) {
    mBindings.push_back(binding);
    connect(binding, &SettingBinding::answered, this, &PumpSettingsObjectInterface::valueAnswered);
}

void PumpSettingsSection::request() {
    for (SettingBinding* binding : mBindings) {
        binding->request();
    }
}

bool PumpSettingsSection::parse(const QJsonObject& section, PumpSettingsResultType& result) {
    FieldValues file;
    QString error;
    if (!mLayout.read(section, file, error)) {
        BWL_LOG_WARN("parse", QStringLiteral("Section \"%1\": %2").arg(mName, error));
        result = PumpSettingsResultType::InvalidFileFormat;
        return false;
    }
    const PumpSettingsResultType fits = checkFile(file);
    if (fits != PumpSettingsResultType::Success) {
        result = fits;
        return false;
    }
    mFile = file;
    return true;
}

PumpSettingsResultType PumpSettingsSection::checkFile(const FieldValues& /*file*/) const {
    return PumpSettingsResultType::Success;
}

void PumpSettingsSection::apply() {
    for (SettingBinding* binding : mBindings) {
        binding->apply(mFile);
    }
}

bool PumpSettingsSection::complete() const {
    return std::all_of(mBindings.begin(), mBindings.end(),
                       [](const SettingBinding* binding) { return binding->complete(); });
}

FieldValues PumpSettingsSection::pumpFields() const {
    FieldValues fields = mKnown;
    for (const SettingBinding* binding : mBindings) {
        fields.insert(binding->answer());
    }
    return fields;
}

QJsonObject PumpSettingsSection::toJson() const {
    return mLayout.write(pumpFields());
}

QList<SettingComparison> PumpSettingsSection::compareWithFile() const {
    const FieldValues pump = pumpFields();
    QList<SettingComparison> comparisons;
    for (const QString& path : mLayout.paths()) {
        const QJsonValue pumpValue = pump.value(path);
        const QJsonValue fileValue = mFile.value(path);
        comparisons.append({mLayout.displayName(path), mLayout.displayValue(path, pumpValue),
                            mLayout.displayValue(path, fileValue),
                            !sameSetting(pumpValue, fileValue)});
    }
    return comparisons;
}

} // namespace pumpSettings
