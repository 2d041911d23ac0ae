#pragma once

#include "QtApps/Common/Controllers/QmlSingleton.h"

#include <QAbstractListModel>
#include <QList>
#include <QtQml/qqmlregistration.h>

namespace communication {
class PumpTorqueIndex;
class PumpTorqueTargets;
} // namespace communication

namespace models::torque {

/// The torque settings of a stepper drive ("cpp.PumpTorqueTargetsModel"): one row per torque
/// index, in index order, with the motor current the drive targets at that index. The drive
/// reports the targets in amperes (32-bit floats, one per index). `currentIndex` is the index
/// the drive runs with; choosing another one makes the drive reboot to apply it. A BLDC drive
/// has no torque settings: the list stays empty.
///
/// Roles (the numbers are the role values themselves, not offsets from Qt::UserRole):
///   0 "text"            the target for display, "1.20 A" (two decimals, the user's locale;
///                       "—" for a value that is not a finite number) (QString)
///   1 "torqueIndex"     the torque index of the row (int)
///   2 "targetCurrentA"  the target current in amperes (double)
class PumpTorqueTargetsModel final : public QAbstractListModel,
                                     public communication::QmlSingleton<PumpTorqueTargetsModel> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The torque index the drive reports, -1 until it has.
    Q_PROPERTY(int currentIndex READ currentIndex NOTIFY currentIndexChanged)

public:
    enum Role { TextRole = 0, TorqueIndexRole = 1, TargetCurrentARole = 2 };

    PumpTorqueTargetsModel(communication::PumpTorqueTargets& targets,
                           communication::PumpTorqueIndex& index, QObject* parent);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int currentIndex() const { return mCurrentIndex; }

    /// Reads the targets and the current index from the drive; false if the requests could not
    /// be queued.
    Q_INVOKABLE bool getTorqueTargets();
    /// Sets the drive's torque index, after which the drive reboots to apply it. An index that
    /// is not a row of the list is logged and sends nothing. Returns whether the request was
    /// queued.
    Q_INVOKABLE bool setTorqueIndex(int index);

    /// The display text of a target current.
    static QString targetText(double targetCurrentA);

signals:
    void currentIndexChanged();

private slots:
    void onTorqueTargets(const QList<float>& targetCurrentsA);
    void onTorqueIndex(uint8_t index);

private:
    communication::PumpTorqueTargets& mTargets;
    communication::PumpTorqueIndex& mIndex;
    QList<double> mTargetCurrentsA;
    int mCurrentIndex = -1;
};

} // namespace models::torque
