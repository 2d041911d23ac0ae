#include "SettingsDocument.h"

#include "QtApps/Common/Logger/Log.h"

#include <QJsonDocument>
#include <QJsonParseError>

namespace pumpSettings {

std::optional<QJsonObject> settingsDocumentRoot(const QByteArray& bytes) {
    if (bytes.size() > kMaxSettingsFileBytes) {
        BWL_LOG_WARN(
            "settingsDocumentRoot",
            QStringLiteral("Not a settings file: larger than %1 bytes").arg(kMaxSettingsFileBytes));
        return std::nullopt;
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        BWL_LOG_WARN("settingsDocumentRoot", QStringLiteral("Not a JSON document: %1 at offset %2")
                                                 .arg(error.errorString())
                                                 .arg(error.offset));
        return std::nullopt;
    }
    if (!document.isObject()) {
        BWL_LOG_WARN("settingsDocumentRoot",
                     QStringLiteral("The document's root is not an object"));
        return std::nullopt;
    }
    return document.object();
}

} // namespace pumpSettings
