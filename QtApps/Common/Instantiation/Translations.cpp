#include "Translations.h"

#include "QtApps/Common/Logger/Log.h"

#include <QCoreApplication>
#include <QLocale>

namespace common {

namespace {
struct Catalogue {
    const char* fileName;
    const char* failure;
};

constexpr std::array<Catalogue, 4> kCatalogues{{
    {"appBwUI", "QML translator failed to load."},
    {"Controller", "Controller translator failed to load."},
    {"Model", "Model translator failed to load."},
    {"Model.FirmwareUpdate", "Model firmware update translator failed to load."},
}};
} // namespace

void Translations::InstallTranslators() {
    const QLocale locale;
    for (std::size_t i = 0; i < kCatalogues.size(); ++i) {
        QTranslator& translator = mTranslators[i];
        if (!translator.load(locale, QString::fromLatin1(kCatalogues[i].fileName),
                             QStringLiteral("_"), QString::fromLatin1(kDirectory))) {
            BWL_LOG_WARN("InstallTranslators", QString::fromLatin1(kCatalogues[i].failure));
        }
        QCoreApplication::installTranslator(&translator);
    }
}

} // namespace common
