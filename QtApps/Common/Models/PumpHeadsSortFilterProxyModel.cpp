#include "PumpHeadsSortFilterProxyModel.h"

#include "PumpHeadsModel.h"

namespace models::pumpHeads {

PumpHeadsSortFilterProxyModel::PumpHeadsSortFilterProxyModel(PumpHeadsModel& heads, QObject* parent)
    : QSortFilterProxyModel(parent)
    , mHeads(heads) {
    setSourceModel(&heads);
}

bool PumpHeadsSortFilterProxyModel::getPumpHeads() {
    return mHeads.getPumpHeads();
}

void PumpHeadsSortFilterProxyModel::setNameFilter(const QString& regExp) {
    mNamePattern = regExp;
    mNameExpression.setPattern(regExp);
    invalidateFilter();
}

void PumpHeadsSortFilterProxyModel::setIsStepperPump(bool isStepperPump) {
    mIsStepperPump = isStepperPump;
    invalidateFilter();
}

// A pattern that is not a valid expression matches nothing, so it shows no head.
bool PumpHeadsSortFilterProxyModel::filterAcceptsRow(int sourceRow,
                                                     const QModelIndex& sourceParent) const {
    const QModelIndex row = mHeads.index(sourceRow, 0, sourceParent);
    const QString name = row.data(PumpHeadsModel::NameRole).toString();
    const bool fits = row.data(mIsStepperPump ? PumpHeadsModel::StepperCompatibleRole
                                              : PumpHeadsModel::BldcCompatibleRole)
                          .toBool();
    if (!mNamePattern.isEmpty() && name != mNamePattern) {
        return false;
    }
    return mNameExpression.match(name).hasMatch() && fits && mHeads.pumpHeadInLaunch(name);
}

} // namespace models::pumpHeads
