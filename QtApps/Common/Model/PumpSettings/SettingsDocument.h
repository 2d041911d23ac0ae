#pragma once

#include <QByteArray>
#include <QJsonObject>

#include <optional>

namespace pumpSettings {

/// A settings file is about a kilobyte; one past this size is not a settings file and is not
/// parsed.
inline constexpr qint64 kMaxSettingsFileBytes = qint64{1024} * 1024;

/// The root object of a settings file's bytes; nothing (with a log line saying why) for bytes
/// past kMaxSettingsFileBytes, text that is not a JSON document, or a root that is not an object.
std::optional<QJsonObject> settingsDocumentRoot(const QByteArray& bytes);

} // namespace pumpSettings
