#pragma once

#include "QmlSingleton.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/DeviceDetails.h"
#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/PumpDetails.h"

#include "Common/Protocol/SemanticVersion.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace communication {

class PumpSession;
class PumpValues;

/// The pump's identity for the screens ("cpp.PumpDetailsController"): what the device and OEM
/// device objects report, as texts, and the protocol version of the session. The details are
/// asked for each time a session opens, and forgotten when it closes, so a screen never shows
/// the identity of a pump that is no longer there.
class PumpDetailsController final : public QObject, public QmlSingleton<PumpDetailsController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// Kind of drive, for example "Stepper Analog"; "Error" for a code past the table.
    Q_PROPERTY(QString deviceType READ deviceType NOTIFY deviceDetailsChanged)
    /// The pump's application firmware version, "major.minor.patch"; empty until reported.
    Q_PROPERTY(QString appVersion READ appVersion NOTIFY deviceDetailsChanged)
    Q_PROPERTY(QString partNumber READ partNumber NOTIFY pumpDetailsChanged)
    /// Kind of drive as the OEM details give it (the device-type texts).
    Q_PROPERTY(QString pumpType READ pumpType NOTIFY pumpDetailsChanged)
    Q_PROPERTY(QString pumpSerial READ pumpSerial NOTIFY pumpDetailsChanged)
    /// Catalogue name of the fitted pump head; empty for an index past the catalogue.
    Q_PROPERTY(QString headType READ headType NOTIFY pumpDetailsChanged)
    /// Motor type, for example "nema24a"; "Error" for a code past the table.
    Q_PROPERTY(QString motorType READ motorType NOTIFY pumpDetailsChanged)
    Q_PROPERTY(QString productDescription READ productDescription NOTIFY pumpDetailsChanged)
    Q_PROPERTY(bool isStepperPump READ isStepperPump NOTIFY pumpDetailsChanged)
    Q_PROPERTY(bool isNetworkPump READ isNetworkPump NOTIFY pumpDetailsChanged)
    /// Protocol version of the session, "V1.0.0"; empty until a pump has answered.
    Q_PROPERTY(QString protocolVersion READ protocolVersion NOTIFY protocolVersionChanged)

public:
    PumpDetailsController(PumpValues& values, PumpSession& session, QObject* parent = nullptr);

    QString deviceType() const;
    QString appVersion() const;
    QString partNumber() const { return mPumpDetails.PartNumberText(); }
    QString pumpType() const;
    QString pumpSerial() const { return mPumpDetails.PumpSerialText(); }
    QString headType() const;
    QString motorType() const;
    QString productDescription() const { return mPumpDetails.ProductDescriptionText(); }
    bool isStepperPump() const { return mPumpDetails.isStepperPump != 0; }
    bool isNetworkPump() const { return mPumpDetails.isNetworkPump != 0; }
    QString protocolVersion() const { return mProtocolVersion; }

    const objects::DeviceDetails& deviceDetails() const { return mDeviceDetails; }
    const objects::PumpDetails& pumpDetails() const { return mPumpDetails; }
    /// Whether the OEM details of the pump connected now have arrived (they are forgotten, with
    /// one more pumpDetailsChanged, when the session closes).
    bool pumpDetailsKnown() const { return mPumpDetailsKnown; }

signals:
    void deviceDetailsChanged(communication::objects::DeviceDetails details);
    void pumpDetailsChanged(communication::objects::PumpDetails details);
    void protocolVersionChanged();

public slots:
    void deviceDetailsUpdate(const communication::objects::DeviceDetails& details);
    void pumpDetailsUpdate(const communication::objects::PumpDetails& details);
    void versionChanged(halyard::SemanticVersion version);

private slots:
    void onPumpConnectionChanged(bool connected);

private:
    PumpValues& mValues;
    objects::DeviceDetails mDeviceDetails;
    objects::PumpDetails mPumpDetails;
    bool mDeviceDetailsKnown = false;
    bool mPumpDetailsKnown = false;
    QString mProtocolVersion;
};

} // namespace communication
