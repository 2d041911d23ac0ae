#pragma once

#include "PumpHeadCatalogue.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/DeviceObject/QPumpHeadParameterTypes.h"

#include <QAbstractListModel>

namespace communication {
class PumpHeads;
}

namespace models::pumpHeads {

/// The pump heads the connected drive supports, as its head list reports them, one row per
/// head in the pump's order, each described from the product catalogue (PumpHeadCatalogue.h).
/// A head the catalogue does not know keeps its name and gets a placeholder description; the
/// proxy (PumpHeadsSortFilterProxyModel) never shows it. The rows are replaced as a whole by
/// every list the pump sends.
///
/// Roles (the numbers are the role values themselves, not offsets from Qt::UserRole; they do
/// not follow the field order, and the screens and the proxy address the fields by them):
///   0 "pumpheadid"         the head's name as the pump reports it (QString)
///   1 "description"        one line from the catalogue, empty for "None" (QString)
///   2 "name"               the name shown: the id, or "None" translated (QString)
///   3 "ratedspeeddrpm"     rated speed, tenths of rpm (uint)
///   4 "bldccompatible"     whether a BLDC drive runs it (bool)
///   5 "steppercompatible"  whether a stepper drive runs it (bool)
class PumpHeadsModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        PumpHeadIdRole = 0,
        DescriptionRole = 1,
        NameRole = 2,
        RatedSpeedDrpmRole = 3,
        BldcCompatibleRole = 4,
        StepperCompatibleRole = 5,
    };

    /// The description of a head the catalogue does not know.
    static constexpr const char* kUnknownHeadDescription =
        "Lorem ipsum dolor sit amet, vel Lorem ipsum dolor sit amet, vel.";

    PumpHeadsModel(communication::PumpHeads& heads, QObject* parent);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

public slots:
    /// Asks the pump for its head list (queued to the values' thread); false if it could not
    /// be queued.
    bool getPumpHeads();
    /// Whether the catalogue knows a head of this name (exact, case-sensitive).
    bool pumpHeadInLaunch(const QString& pumpHeadName) const;

private slots:
    void updatePumpHeads(const QList<communication::objects::QPumpHeadParameterTypes>& heads);

private:
    struct Row {
        QString pumpHeadId;
        QString name;
        QString description;
        uint ratedSpeedDrpm = 0;
        bool bldcCompatible = false;
        bool stepperCompatible = false;
    };

    Row rowOf(const communication::objects::QPumpHeadParameterTypes& head) const;
    /// The catalogue model that lists `pumpHeadName` as a variant, or null.
    const PumpHeadModelEntry* catalogueModel(const QString& pumpHeadName) const;

    communication::PumpHeads& mHeads;
    const QList<PumpHeadModelEntry> mCatalogue;
    QList<Row> mRows;
};

} // namespace models::pumpHeads
