#pragma once

#include "PumpFaultsModelsCommon.h"

#include "QtApps/Common/Controllers/QmlSingleton.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace communication {
class PumpSessionController;
}

namespace models::faults {

/// The faults a technician can make the pump raise on purpose ("cpp.PumpSimulatedFaultsModel",
/// the override screen's "Test Faults"). A row turns active only when the pump confirms that it
/// raised the fault, and inactive when a later fault word no longer has it; a pump that is no
/// longer connected resets every row.
///
/// Roles (the numbers are the role values themselves, not offsets from Qt::UserRole):
///   0 "name"    the fault's translated name (QString)
///   1 "active"  whether the pump confirmed raising it and still reports it (bool)
///   2 "title"   the fault's group heading, often empty (QString)
class PumpSimulatedFaultsModel final
    : public QAbstractListModel,
      public PumpFaultsModelsCommon,
      public communication::QmlSingleton<PumpSimulatedFaultsModel> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    enum Role { NameRole = 0, ActiveRole = 1, TitleRole = 2 };

    PumpSimulatedFaultsModel(communication::PumpFaults& faults,
                             const communication::PumpSessionController& session, QObject* parent);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Asks the pump to raise the fault of row `index` (motor-fault type index + 1); the row
    /// follows once the pump confirms. An index outside 0..13 is logged and sends nothing.
    /// Returns whether the request was handed to the link.
    Q_INVOKABLE bool enableFault(int index);

public slots:
    /// The pump raised fault `type` (1..14): its row turns active. Type 0 changes nothing.
    void onSetFaultAck(communication::MotorFaultType type);
    /// Resets every row once the pump is no longer connected; nothing while it is.
    void onPumpConnectedChanged();
    /// Clears the rows of faults the pump no longer reports; never sets a row.
    void updateFaults(const QList<communication::PumpFaults::FaultStatus>& faultList);

private:
    void resetRows();

    communication::PumpFaults& mFaults;
    const communication::PumpSessionController& mSession;
    QList<FaultRow> mRows;
};

} // namespace models::faults
