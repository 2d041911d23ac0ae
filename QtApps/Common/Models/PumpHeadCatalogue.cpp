#include "PumpHeadCatalogue.h"

#include <QCoreApplication>

#include <array>

namespace models::pumpHeads {

namespace {

struct CatalogueText {
    const char* name;
    const char* description;
    std::array<const char*, 3> variants; // unused places are null
};

// Rated speeds and motor fit are the pump's to report; the descriptions say what a technician
// picks a head by. S: single-channel standard heads; T: thick-wall tubing for pressure; M:
// four-channel dosing heads (stepper only); F and X: large-bore transfer heads (BLDC only).
const std::array<CatalogueText, 14> kCatalogue = {{
    {"None", "", {"None"}},
    {"BW-S10",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "3 rollers, 0.01 to 30 ml/min, up to 2 bar (HP: 4 bar), 0.5 to 1.6 mm "
                       "bore tubing"),
     {"BW-S10", "BW-S10HP"}},
    {"BW-S14",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "4 rollers, 0.05 to 280 ml/min, up to 1.5 bar, 1.6 and 3.2 mm bore tubing"),
     {"BW-S14", "BW-S16"}},
    {"BW-S25",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "3 rollers, 0.2 to 1700 ml/min, up to 2 bar (HP: 3.5 bar), 4.8 mm bore "
                       "tubing"),
     {"BW-S25", "BW-S25HP"}},
    {"BW-S17",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "3 rollers, 0.3 to 2800 ml/min, up to 1.7 bar, 6.4 mm bore tubing"),
     {"BW-S17"}},
    {"BW-S18",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "3 rollers, 0.4 to 3600 ml/min, up to 1.4 bar, 8 mm bore tubing"),
     {"BW-S18"}},
    {"BW-S35",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "2 rollers, 0.6 to 5200 ml/min, up to 1 bar, 8 and 9.5 mm bore tubing"),
     {"BW-S35", "BW-S36"}},
    {"BW-T13",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "4 rollers, 0.02 to 240 ml/min, up to 4 bar, 0.8 to 3.2 mm bore "
                       "thick-wall tubing"),
     {"BW-T13", "BW-T14", "BW-T16"}},
    {"BW-T17",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "3 rollers, 0.2 to 2400 ml/min, up to 4 bar, 4.8 to 8 mm bore thick-wall "
                       "tubing"),
     {"BW-T17", "BW-T18", "BW-T25"}},
    {"BW-M06x4",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "4 channels, 8 rollers, 0.002 to 4 ml/min per channel, up to 1 bar, 0.25 "
                       "to 0.76 mm bore tubing"),
     {"BW-M06x4"}},
    {"BW-M13x4",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "4 channels, 6 rollers, 0.01 to 70 ml/min per channel, up to 1 bar, 0.8 "
                       "to 3.2 mm bore tubing"),
     {"BW-M13x4", "BW-M14x4", "BW-M16x4"}},
    {"BW-F73",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "2 rollers, 2 to 12 l/min, up to 2 bar, 12.7 and 15.9 mm bore tubing"),
     {"BW-F73", "BW-F82"}},
    {"BW-F88",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "2 rollers, 3 to 17 l/min, up to 2 bar, 19 mm bore tubing"),
     {"BW-F88"}},
    {"BW-X24",
     QT_TRANSLATE_NOOP("PumpHeadsModel",
                       "3 rollers, 1 to 8 l/min, up to 3 bar, 6.4 to 9.5 mm bore thick-wall "
                       "tubing"),
     {"BW-X24", "BW-X35", "BW-X36"}},
}};

} // namespace

QList<PumpHeadModelEntry> PumpHeadCatalogue() {
    QList<PumpHeadModelEntry> catalogue;
    catalogue.reserve(static_cast<qsizetype>(kCatalogue.size()));
    for (const CatalogueText& entry : kCatalogue) {
        PumpHeadModelEntry model;
        model.name = QString::fromLatin1(entry.name);
        if (*entry.description != '\0') {
            model.description = QCoreApplication::translate("PumpHeadsModel", entry.description);
        }
        for (const char* variant : entry.variants) {
            if (variant != nullptr) {
                model.variants.append(QString::fromLatin1(variant));
            }
        }
        catalogue.append(model);
    }
    return catalogue;
}

} // namespace models::pumpHeads
