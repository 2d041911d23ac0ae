#pragma once

#include <QTranslator>

#include <array>

namespace common {

/// The application's four translation catalogues for the system locale, from
/// ":/i18n/translations": "appBwUI" (the screens), "Controller", "Model" and
/// "Model.FirmwareUpdate". Each is installed even when its file is missing, so the screens fall
/// back to their source texts.
class Translations final {
public:
    static constexpr const char* kDirectory = ":/i18n/translations";

    Translations() = default;
    Translations(const Translations&) = delete;
    Translations& operator=(const Translations&) = delete;

    void InstallTranslators();

private:
    std::array<QTranslator, 4> mTranslators;
};

} // namespace common
