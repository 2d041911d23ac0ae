#pragma once

#include "PumpSettingsObjectInterface.h"
#include "SectionLayout.h"
#include "SettingBinding.h"
#include "SettingComparison.h"

#include <QList>

#include <vector>

namespace pumpSettings {

/// What the three sections share: a layout, the pump values bound to its fields, the fields
/// that the pump's details give, and the file's values once parsed. A section only says which
/// layout and values it has (and, for "oemPump", whether a file fits the pump).
class PumpSettingsSection : public PumpSettingsObjectInterface {
    Q_OBJECT

public:
    void request() override;
    bool parse(const QJsonObject& section, PumpSettingsResultType& result) override;
    void apply() override;
    bool complete() const override;
    QJsonObject toJson() const override;
    QString name() const override { return mName; }

    /// Every field of the file beside the pump's value: after a request the value the pump
    /// holds now, after an apply the value it read back.
    QList<SettingComparison> compareWithFile() const;

protected:
    PumpSettingsSection(QString name, const SectionLayout& layout, QObject* parent);

    /// Adds a value of the section, made with `this` as its parent.
    void addBinding(SettingBinding* binding);
    /// A field that the pump's details give rather than a value.
    void setKnown(const QString& path, const QJsonValue& value) { mKnown.insert(path, value); }

    /// Checks a file whose layout is right against the pump; Success when it fits.
    virtual PumpSettingsResultType checkFile(const FieldValues& file) const;

private:
    /// The pump's side of every field: the known ones and the values' last answers.
    FieldValues pumpFields() const;

    QString mName;
    const SectionLayout& mLayout;
    std::vector<SettingBinding*> mBindings;
    FieldValues mKnown;
    FieldValues mFile;
};

/// Whether two field values are the same setting (counts compare as numbers).
bool sameSetting(const QJsonValue& a, const QJsonValue& b);

} // namespace pumpSettings
