#pragma once

#include "PumpSettingsResultType.h"

#include <QJsonObject>
#include <QObject>
#include <QString>

namespace pumpSettings {

/// One section of the pump settings file ("oemPump", "analog" or "network"): gathers its
/// values from the pump for a save, and checks, keeps and applies them for a load.
class PumpSettingsObjectInterface : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

public slots:
    /// Asks the pump for every value of the section.
    virtual void request() = 0;
    /// Checks the section's object of a file and keeps its values; on failure writes why to
    /// `result` (InvalidFileFormat or IncompatiblePumpSettings) and returns false.
    virtual bool parse(const QJsonObject& section, PumpSettingsResultType& result) = 0;
    /// Sends the kept values to the pump.
    virtual void apply() = 0;
    /// Whether every value of the current request or apply has answered.
    virtual bool complete() const = 0;
    /// The section's object, built from the answered values.
    virtual QJsonObject toJson() const = 0;
    virtual QString name() const = 0;

signals:
    /// One of the section's values answered; the procedures then ask complete() again.
    void valueAnswered();
};

} // namespace pumpSettings
