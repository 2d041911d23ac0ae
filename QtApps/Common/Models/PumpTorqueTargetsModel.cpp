#include "PumpTorqueTargetsModel.h"

#include "QtApps/Common/Controllers/QueuedCall.h"
#include "QtApps/Common/Logger/Log.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpTorqueIndex.h"
#include "QtApps/Common/Model/PumpValues/Motor/PumpTorqueTargets.h"

#include <QCoreApplication>
#include <QLocale>

#include <cmath>

namespace models::torque {

using communication::PumpTorqueIndex;
using communication::PumpTorqueTargets;

PumpTorqueTargetsModel::PumpTorqueTargetsModel(PumpTorqueTargets& targets, PumpTorqueIndex& index,
                                               QObject* parent)
    : QAbstractListModel(parent)
    , mTargets(targets)
    , mIndex(index) {
    connect(&targets, &PumpTorqueTargets::getTorqueTargetsResponse, this,
            &PumpTorqueTargetsModel::onTorqueTargets, Qt::QueuedConnection);
    connect(&index, &PumpTorqueIndex::getTorqueIndexResponse, this,
            &PumpTorqueTargetsModel::onTorqueIndex, Qt::QueuedConnection);
}

int PumpTorqueTargetsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mTargetCurrentsA.size());
}

QVariant PumpTorqueTargetsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const double targetCurrentA = mTargetCurrentsA.at(index.row());
    switch (role) {
    case TextRole:
        return targetText(targetCurrentA);
    case TorqueIndexRole:
        return index.row();
    case TargetCurrentARole:
        return targetCurrentA;
    default:
        return {};
    }
}

QHash<int, QByteArray> PumpTorqueTargetsModel::roleNames() const {
    return {{TextRole, "text"},
            {TorqueIndexRole, "torqueIndex"},
            {TargetCurrentARole, "targetCurrentA"}};
}

bool PumpTorqueTargetsModel::getTorqueTargets() {
    return communication::callQueued(mTargets, &PumpTorqueTargets::getTorqueTargets) &&
           communication::callQueued(mIndex, &PumpTorqueIndex::getTorqueIndex);
}

bool PumpTorqueTargetsModel::setTorqueIndex(int index) {
    if (index < 0 || index >= rowCount()) {
        BWL_LOG_WARN("setTorqueIndex",
                     QStringLiteral("setTorqueIndex: no torque index %1 among %2 targets")
                         .arg(index)
                         .arg(rowCount()));
        return false;
    }
    const auto wireIndex = static_cast<uint8_t>(index);
    return communication::callQueued(mIndex, &PumpTorqueIndex::setTorqueIndexAndReboot, wireIndex);
}

QString PumpTorqueTargetsModel::targetText(double targetCurrentA) {
    if (!std::isfinite(targetCurrentA)) {
        return QStringLiteral("—");
    }
    return QCoreApplication::translate("PumpTorqueTargetsModel", "%1 A")
        .arg(QLocale().toString(targetCurrentA, 'f', 2));
}

void PumpTorqueTargetsModel::onTorqueTargets(const QList<float>& targetCurrentsA) {
    if (!mTargetCurrentsA.isEmpty()) {
        beginRemoveRows(QModelIndex(), 0, static_cast<int>(mTargetCurrentsA.size()) - 1);
        mTargetCurrentsA.clear();
        endRemoveRows();
    }
    if (targetCurrentsA.isEmpty()) {
        return;
    }
    // An index travels as one byte, so only the first 256 targets can be chosen.
    const auto count = std::min<qsizetype>(targetCurrentsA.size(), 256);
    beginInsertRows(QModelIndex(), 0, static_cast<int>(count) - 1);
    for (qsizetype i = 0; i < count; ++i) {
        mTargetCurrentsA.append(static_cast<double>(targetCurrentsA.at(i)));
    }
    endInsertRows();
}

void PumpTorqueTargetsModel::onTorqueIndex(uint8_t index) {
    const int reported = index;
    if (reported != mCurrentIndex) {
        mCurrentIndex = reported;
        emit currentIndexChanged();
    }
}

} // namespace models::torque
