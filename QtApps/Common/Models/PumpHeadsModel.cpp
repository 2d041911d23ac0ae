#include "PumpHeadsModel.h"

#include "QtApps/Common/Controllers/QueuedCall.h"
#include "QtApps/Common/Model/PumpValues/PumpHeads.h"
#include "QtApps/Common/Model/PumpValues/WireConversions.h"

#include <QCoreApplication>

namespace models::pumpHeads {

using communication::objects::QPumpHeadParameterTypes;

PumpHeadsModel::PumpHeadsModel(communication::PumpHeads& heads, QObject* parent)
    : QAbstractListModel(parent)
    , mHeads(heads)
    , mCatalogue(PumpHeadCatalogue()) {
    connect(&heads, &communication::PumpHeads::getPumpHeadsResponse, this,
            &PumpHeadsModel::updatePumpHeads, Qt::QueuedConnection);
}

int PumpHeadsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size());
}

QVariant PumpHeadsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return {};
    }
    const Row& row = mRows.at(index.row());
    switch (role) {
    case PumpHeadIdRole:
        return row.pumpHeadId;
    case DescriptionRole:
        return row.description;
    case NameRole:
        return row.name;
    case RatedSpeedDrpmRole:
        return row.ratedSpeedDrpm;
    case BldcCompatibleRole:
        return row.bldcCompatible;
    case StepperCompatibleRole:
        return row.stepperCompatible;
    default:
        return {};
    }
}

QHash<int, QByteArray> PumpHeadsModel::roleNames() const {
    return {{PumpHeadIdRole, "pumpheadid"},
            {DescriptionRole, "description"},
            {NameRole, "name"},
            {RatedSpeedDrpmRole, "ratedspeeddrpm"},
            {BldcCompatibleRole, "bldccompatible"},
            {StepperCompatibleRole, "steppercompatible"}};
}

bool PumpHeadsModel::getPumpHeads() {
    return communication::callQueued(mHeads, &communication::PumpHeads::getPumpHeads);
}

bool PumpHeadsModel::pumpHeadInLaunch(const QString& pumpHeadName) const {
    return catalogueModel(pumpHeadName) != nullptr;
}

const PumpHeadModelEntry* PumpHeadsModel::catalogueModel(const QString& pumpHeadName) const {
    for (const PumpHeadModelEntry& model : mCatalogue) {
        if (model.variants.contains(pumpHeadName)) {
            return &model;
        }
    }
    return nullptr;
}

PumpHeadsModel::Row PumpHeadsModel::rowOf(const QPumpHeadParameterTypes& head) const {
    Row row;
    row.pumpHeadId = head.name;
    row.ratedSpeedDrpm = head.value;
    // The list's two flags, in the pump's order: BLDC, then stepper.
    row.bldcCompatible = communication::wire::flagFromWire(head.parameterA);
    row.stepperCompatible = communication::wire::flagFromWire(head.parameterB);
    if (head.name == QLatin1String("None")) {
        row.name = QCoreApplication::translate("PumpHeadsModel", "None");
    } else if (const PumpHeadModelEntry* model = catalogueModel(head.name)) {
        row.name = head.name;
        row.description = model->description;
    } else {
        row.name = head.name;
        row.description = QString::fromLatin1(kUnknownHeadDescription);
    }
    return row;
}

void PumpHeadsModel::updatePumpHeads(const QList<QPumpHeadParameterTypes>& heads) {
    if (!mRows.isEmpty()) {
        beginRemoveRows(QModelIndex(), 0, static_cast<int>(mRows.size()) - 1);
        mRows.clear();
        endRemoveRows();
    }
    if (heads.isEmpty()) {
        return;
    }
    QList<Row> rows;
    rows.reserve(heads.size());
    for (const QPumpHeadParameterTypes& head : heads) {
        rows.append(rowOf(head));
    }
    beginInsertRows(QModelIndex(), 0, static_cast<int>(rows.size()) - 1);
    mRows = std::move(rows);
    endInsertRows();
}

} // namespace models::pumpHeads
