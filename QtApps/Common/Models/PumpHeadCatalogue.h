#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace models::pumpHeads {

/// One pump-head model of the product catalogue, in the user's language.
struct PumpHeadModelEntry {
    QString name;         ///< the model's name, also the name of its base variant
    QString description;  ///< one line: rollers, flow range, pressure, tubing
    QStringList variants; ///< every head name the pumps report for this model
};

/// The product's pump-head catalogue: "None" (no head, empty description) followed by the 13
/// head models.
///
/// The pumps name heads by variant: the 27-entry head table of the drives (see
/// PumpHeadCatalogueEntry) lists each tubing size and the high-pressure versions as a head of
/// its own ("BW-S10HP", "BW-T14"). A variant shares its model's rollers, housing and
/// description, so the catalogue keeps one entry per model and lists its variants; a head is
/// known when its name is one of them. Each model is named after its base variant.
///
/// Built anew by each call, so the descriptions follow the translator installed at the time.
QList<PumpHeadModelEntry> PumpHeadCatalogue();

} // namespace models::pumpHeads
