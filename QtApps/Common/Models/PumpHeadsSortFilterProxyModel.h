#pragma once

#include "QtApps/Common/Controllers/QmlSingleton.h"

#include <QRegularExpression>
#include <QSortFilterProxyModel>
#include <QtQml/qqmlregistration.h>

namespace models::pumpHeads {

class PumpHeadsModel;

/// The pump-head selector's list ("cpp.PumpHeadsSortFilterProxyModel"): the heads of the
/// pump's list that fit its motor and that the catalogue knows, in the pump's order. Roles are
/// the source's (PumpHeadsModel.h): 0 "pumpheadid", 1 "description", 2 "name",
/// 3 "ratedspeeddrpm", 4 "bldccompatible", 5 "steppercompatible".
///
/// The name filter is set as a regular expression but selects by exact name: a non-empty
/// pattern shows only the head named exactly so (a prefix shows nothing); the empty pattern
/// shows every head. The selector uses "" for the whole list and a head's id for the current
/// head alone.
class PumpHeadsSortFilterProxyModel final
    : public QSortFilterProxyModel,
      public communication::QmlSingleton<PumpHeadsSortFilterProxyModel> {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    PumpHeadsSortFilterProxyModel(PumpHeadsModel& heads, QObject* parent);

public slots:
    /// Asks the pump for its head list; false if the request could not be queued.
    bool getPumpHeads();
    void setNameFilter(const QString& regExp);
    /// Which motor flag decides whether a head fits: stepper (true, the default) or BLDC.
    void setIsStepperPump(bool isStepperPump);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    PumpHeadsModel& mHeads;
    QString mNamePattern;
    QRegularExpression mNameExpression{QString(), QRegularExpression::CaseInsensitiveOption};
    bool mIsStepperPump = true;
};

} // namespace models::pumpHeads
