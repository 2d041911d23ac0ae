#pragma once

#include <QCoreApplication>
#include <QJsonObject>
#include <QJsonValue>
#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

namespace pumpSettings {

/// The values of one section of a settings file by field path: the key of a field of the
/// section itself ("primeSpeed"), or the key of an object inside it, a dot and the key of the
/// field ("currentInputSettings.minDrpm"). Numbers are held as whole numbers.
using FieldValues = QMap<QString, QJsonValue>;

/// What a field holds in the file.
enum class FieldKind {
    Count,   ///< a JSON number that is a whole number from 0 to the field's maximum
    Text,    ///< any JSON string
    Choice,  ///< a JSON string, one of the field's choices
    Flag,    ///< a JSON boolean
    Address, ///< a JSON string, an IPv4 address in dotted form
};

/// The unit a count is shown in.
enum class Unit { None, RpmPerSecond, Drpm, Microamperes, Millivolts, Hertz };

struct FieldSpec {
    static FieldSpec count(QString key, const char* name, Unit unit, double maximum) {
        return {std::move(key), FieldKind::Count, name, unit, maximum, {}};
    }
    static FieldSpec text(QString key, const char* name) {
        return {std::move(key), FieldKind::Text, name, Unit::None, 0.0, {}};
    }
    static FieldSpec choice(QString key, const char* name, QStringList choices) {
        return {std::move(key), FieldKind::Choice, name, Unit::None, 0.0, std::move(choices)};
    }
    static FieldSpec flag(QString key, const char* name) {
        return {std::move(key), FieldKind::Flag, name, Unit::None, 0.0, {}};
    }
    static FieldSpec address(QString key, const char* name) {
        return {std::move(key), FieldKind::Address, name, Unit::None, 0.0, {}};
    }

    QString key;
    FieldKind kind = FieldKind::Count;
    /// English name for the screens and the log (translated where shown, in the context
    /// "SectionLayout").
    const char* name = "";
    Unit unit = Unit::None;
    /// The largest count the pump's field holds: a larger one is refused, never wrapped.
    double maximum = 0.0;
    QStringList choices;
};

/// An object inside a section (the input settings of the analog section) with fields of its own.
struct GroupSpec {
    QString key;
    /// English name put before the names of its fields ("Current input").
    const char* name = "";
    std::vector<FieldSpec> fields;
};

/// The layout of one section of the settings file: its keys, the JSON type and range of each,
/// and how each is named and shown. Reading checks a section strictly: exactly the layout's keys
/// at every level, no more and no fewer, each of its type.
class SectionLayout {
    Q_DECLARE_TR_FUNCTIONS(SectionLayout)

public:
    explicit SectionLayout(std::vector<FieldSpec> fields, std::vector<GroupSpec> groups = {});
    // It points into its own specs.
    SectionLayout(const SectionLayout&) = delete;
    SectionLayout& operator=(const SectionLayout&) = delete;

    /// Checks `section` and on success puts every field into `values`. On failure `error` says
    /// which key is at fault, for the log, and `values` may hold some of the fields.
    bool read(const QJsonObject& section, FieldValues& values, QString& error) const;
    /// The section object of `values`; fields without a value are left out.
    QJsonObject write(const FieldValues& values) const;

    /// Every field path, in the order of the layout.
    const QStringList& paths() const { return mPaths; }
    /// The translated name of a field, with its group's: "Current input: speed at maximum".
    QString displayName(const QString& path) const;
    /// A value as a technician reads it, with its unit: "150.0 rpm", "4000 µA", "On".
    QString displayValue(const QString& path, const QJsonValue& value) const;

private:
    struct Entry {
        const GroupSpec* group;
        const FieldSpec* field;
    };

    bool readFields(const QJsonObject& object, const std::vector<FieldSpec>& fields,
                    qsizetype expectedKeys, const QString& prefix, FieldValues& values,
                    QString& error) const;
    const Entry* find(const QString& path) const;

    std::vector<FieldSpec> mFields;
    std::vector<GroupSpec> mGroups;
    QStringList mPaths;
    QMap<QString, Entry> mEntries;
};

} // namespace pumpSettings
