#pragma once

#include "QmlSingleton.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <cstdint>

namespace communication {

class PumpValues;

/// The application speed and direction for the screens ("cpp.PumpApplicationSpeedController").
/// The pump knows one signed speed whose sign is the direction; the screens see a speed (tenths
/// of rpm, never negative) and a direction, which this controller splits and joins. Every
/// property is what the pump last reported, never what was asked.
class PumpApplicationSpeedController final : public QObject,
                                             public QmlSingleton<PumpApplicationSpeedController> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// Whether the application speed overrides the pump's control input.
    Q_PROPERTY(bool applicationOverrideActive READ applicationOverrideActive NOTIFY
                   applicationOverrideActiveChanged)
    /// Size of the application speed, tenths of rpm.
    Q_PROPERTY(int pumpApplicationSpeedDrpm READ pumpApplicationSpeedDrpm NOTIFY
                   pumpApplicationSpeedDrpmChanged)
    Q_PROPERTY(MotorDirection motorDirection READ motorDirection WRITE setMotorDirection NOTIFY
                   motorDirectionChanged)
    /// The highest application speed the pump accepts, tenths of rpm.
    Q_PROPERTY(int pumpMaxApplicationSpeedDrpm READ pumpMaxApplicationSpeedDrpm NOTIFY
                   pumpMaxApplicationSpeedDrpmChanged)
    Q_PROPERTY(bool pumpApplicationSpeedEnable READ pumpApplicationSpeedEnable NOTIFY
                   pumpApplicationSpeedEnableChanged)

public:
    enum MotorDirection { Clockwise = 0, Anticlockwise = 1 };
    Q_ENUM(MotorDirection)

    explicit PumpApplicationSpeedController(PumpValues& values, QObject* parent = nullptr);

    bool applicationOverrideActive() const { return mOverrideActive; }
    uint16_t pumpApplicationSpeedDrpm() const { return mSpeedDrpm; }
    MotorDirection motorDirection() const { return mDirection; }
    uint16_t pumpMaxApplicationSpeedDrpm() const { return mMaxSpeedDrpm; }
    bool pumpApplicationSpeedEnable() const { return mSpeedEnable; }

signals:
    void pumpApplicationSpeedDrpmChanged();
    void pumpMaxApplicationSpeedDrpmChanged();
    void applicationOverrideActiveChanged();
    void pumpApplicationSpeedEnableChanged();
    void motorDirectionChanged();

public slots:
    void subscribe();
    void unsubscribe();
    void getApplicationSpeed();
    /// Sets the speed in the direction shown (tenths of rpm: the screens send rpm × 10). A
    /// figure that is not a whole number from 0 to 65535 is refused: false, nothing sent.
    bool setApplicationSpeedDrpm(double speedDrpm);
    void getApplicationSpeedEnable();
    void setApplicationSpeedEnable(bool enable);
    void getApplicationOverrideActive();
    void setApplicationOverrideActive(bool active);
    void getMaxApplicationSpeed();
    /// A new direction takes effect at once, at the speed shown.
    void setMotorDirection(MotorDirection direction);

    void pumpApplicationOverrideActiveChanged(bool active);
    void pumpMaxApplicationSpeed_getMaxApplicationSpeedResponse(int32_t speedDrpm);
    void pumpApplicationSpeed_getApplicationSpeedResponse(int32_t speedDrpm);
    void pumpApplicationSpeedEnable_getApplicationSpeedResponse(bool enabled);

private:
    void sendSpeed(uint16_t speedDrpm);

    PumpValues& mValues;
    bool mOverrideActive = false;
    uint16_t mSpeedDrpm = 0;
    MotorDirection mDirection = Clockwise;
    uint16_t mMaxSpeedDrpm = 0;
    bool mSpeedEnable = false;
};

} // namespace communication
