#include "SectionLayout.h"

#include "DottedAddress.h"

#include <QLocale>

#include <cmath>

namespace pumpSettings {

namespace {

QString pathOf(const QString& prefix, const QString& key) {
    return prefix.isEmpty() ? key : prefix + QLatin1Char('.') + key;
}

/// The field's value when `value` is of the field's kind and within its range; a count as a
/// whole number, so that 1e3 and 1000 are the same count.
std::optional<QJsonValue> checked(const FieldSpec& field, const QJsonValue& value) {
    switch (field.kind) {
    case FieldKind::Count: {
        if (!value.isDouble()) {
            return std::nullopt;
        }
        const double number = value.toDouble();
        // Written so that NaN fails too.
        if (!(number >= 0.0 && number <= field.maximum) || std::trunc(number) != number) {
            return std::nullopt;
        }
        return QJsonValue(static_cast<qint64>(number));
    }
    case FieldKind::Text:
        return value.isString() ? std::optional<QJsonValue>(value) : std::nullopt;
    case FieldKind::Choice:
        return value.isString() && field.choices.contains(value.toString())
                   ? std::optional<QJsonValue>(value)
                   : std::nullopt;
    case FieldKind::Flag:
        return value.isBool() ? std::optional<QJsonValue>(value) : std::nullopt;
    case FieldKind::Address:
        return value.isString() && parseDottedAddress(value.toString())
                   ? std::optional<QJsonValue>(value)
                   : std::nullopt;
    }
    return std::nullopt;
}

} // namespace

SectionLayout::SectionLayout(std::vector<FieldSpec> fields, std::vector<GroupSpec> groups)
    : mFields(std::move(fields))
    , mGroups(std::move(groups)) {
    for (const FieldSpec& field : mFields) {
        mPaths.append(field.key);
        mEntries.insert(field.key, {nullptr, &field});
    }
    for (const GroupSpec& group : mGroups) {
        for (const FieldSpec& field : group.fields) {
            const QString path = pathOf(group.key, field.key);
            mPaths.append(path);
            mEntries.insert(path, {&group, &field});
        }
    }
}

bool SectionLayout::read(const QJsonObject& section, FieldValues& values, QString& error) const {
    const auto keys =
        static_cast<qsizetype>(mFields.size()) + static_cast<qsizetype>(mGroups.size());
    if (!readFields(section, mFields, keys, QString(), values, error)) {
        return false;
    }
    for (const GroupSpec& group : mGroups) {
        const QJsonValue object = section.value(group.key);
        if (!object.isObject()) {
            error = QStringLiteral("\"%1\" missing or not an object").arg(group.key);
            return false;
        }
        if (!readFields(object.toObject(), group.fields,
                        static_cast<qsizetype>(group.fields.size()), group.key, values, error)) {
            return false;
        }
    }
    return true;
}

bool SectionLayout::readFields(const QJsonObject& object, const std::vector<FieldSpec>& fields,
                               qsizetype expectedKeys, const QString& prefix, FieldValues& values,
                               QString& error) const {
    if (object.size() != expectedKeys) {
        error = QStringLiteral("%1 keys where %2 belong%3")
                    .arg(object.size())
                    .arg(expectedKeys)
                    .arg(prefix.isEmpty() ? QString() : QStringLiteral(" in \"%1\"").arg(prefix));
        return false;
    }
    for (const FieldSpec& field : fields) {
        const QString path = pathOf(prefix, field.key);
        const auto value = checked(field, object.value(field.key));
        if (!value) {
            error = object.contains(field.key)
                        ? QStringLiteral("\"%1\" is not a valid value of its field").arg(path)
                        : QStringLiteral("\"%1\" missing").arg(path);
            return false;
        }
        values.insert(path, *value);
    }
    return true;
}

QJsonObject SectionLayout::write(const FieldValues& values) const {
    QJsonObject section;
    const auto put = [&values](QJsonObject& object, const FieldSpec& field, const QString& path) {
        if (values.contains(path)) {
            object.insert(field.key, values.value(path));
        }
    };
    for (const FieldSpec& field : mFields) {
        put(section, field, field.key);
    }
    for (const GroupSpec& group : mGroups) {
        QJsonObject object;
        for (const FieldSpec& field : group.fields) {
            put(object, field, pathOf(group.key, field.key));
        }
        section.insert(group.key, object);
    }
    return section;
}

const SectionLayout::Entry* SectionLayout::find(const QString& path) const {
    const auto found = mEntries.constFind(path);
    return found == mEntries.constEnd() ? nullptr : &found.value();
}

QString SectionLayout::displayName(const QString& path) const {
    const Entry* entry = find(path);
    if (entry == nullptr) {
        return path;
    }
    const QString name = tr(entry->field->name);
    return entry->group == nullptr ? name : tr("%1: %2").arg(tr(entry->group->name), name);
}

QString SectionLayout::displayValue(const QString& path, const QJsonValue& value) const {
    const Entry* entry = find(path);
    if (value.isUndefined()) {
        return tr("(not read)");
    }
    if (value.isBool()) {
        return value.toBool() ? tr("On") : tr("Off");
    }
    if (value.isString()) {
        return value.toString().isEmpty() ? tr("(none)") : value.toString();
    }
    const qint64 count = value.toInteger();
    const QLocale locale;
    switch (entry == nullptr ? Unit::None : entry->field->unit) {
    case Unit::Drpm:
        return tr("%1 rpm").arg(locale.toString(static_cast<double>(count) / 10.0, 'f', 1));
    case Unit::RpmPerSecond:
        return tr("%1 rpm/s").arg(locale.toString(count));
    case Unit::Microamperes:
        return tr("%1 µA").arg(locale.toString(count));
    case Unit::Millivolts:
        return tr("%1 mV").arg(locale.toString(count));
    case Unit::Hertz:
        return tr("%1 Hz").arg(locale.toString(count));
    case Unit::None:
        break;
    }
    return locale.toString(count);
}

} // namespace pumpSettings
