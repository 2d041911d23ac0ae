#pragma once

#include "QtApps/Common/Controllers/QmlSingleton.h"

#include <QSortFilterProxyModel>
#include <QtQml/qqmlregistration.h>

namespace models::faults {

class PumpFaultsModel;

/// The faults the pump-status panel lists ("cpp.PumpFaultsSortFilterProxyModel"): the live
/// fault model filtered on its "active" role, case-insensitively, in fault order. The panel sets
/// the filter with setFilterRegularExpression: "true" keeps the active faults, "None" matches no
/// row (the collapsed panel). Roles are the source's: 0 "name", 1 "active".
class PumpFaultsSortFilterProxyModel final
    : public QSortFilterProxyModel,
      public communication::QmlSingleton<PumpFaultsSortFilterProxyModel> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// Whether the pump reports any fault, whatever the filter shows.
    Q_PROPERTY(bool faultActive READ faultActive NOTIFY faultActiveChanged)

public:
    PumpFaultsSortFilterProxyModel(PumpFaultsModel& faults, QObject* parent);

    bool faultActive() const;

signals:
    void faultActiveChanged();

private:
    PumpFaultsModel& mFaults;
};

} // namespace models::faults
