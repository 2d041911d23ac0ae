#include "FirmwareBundle.h"

#include "ArchiveReaderInterface.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace firmwareUpdate {

namespace {

// Each reader returns false, with `error` set, on a value of the wrong JSON type; a missing
// key keeps the default.
bool ReadText(const QJsonObject& object, const char* key, QString& out, QString& error) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined()) {
        return true;
    }
    if (!value.isString()) {
        error = QStringLiteral("\"%1\" is not a string").arg(QLatin1String(key));
        return false;
    }
    out = value.toString();
    return true;
}

bool ReadFlag(const QJsonObject& object, const char* key, bool& out, QString& error) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined()) {
        return true;
    }
    if (!value.isBool()) {
        error = QStringLiteral("\"%1\" is not a boolean").arg(QLatin1String(key));
        return false;
    }
    out = value.toBool();
    return true;
}

bool ReadBank(const QJsonObject& object, std::uint8_t& out, QString& error) {
    const QJsonValue value = object.value(QLatin1String("bank"));
    if (value.isUndefined()) {
        return true;
    }
    const double number = value.toDouble(-1.0);
    if (!value.isDouble() || number < 0.0 || number > 255.0 || std::floor(number) != number) {
        error = QStringLiteral("\"bank\" is not a whole number from 0 to 255");
        return false;
    }
    out = static_cast<std::uint8_t>(number);
    return true;
}

// Members are only ever read into memory, but a name that climbs out of the archive or names
// a drive is no name a bundle maker writes.
bool IsPlainMemberName(const QString& name) {
    if (name.isEmpty() || name.startsWith(QLatin1Char('/')) || name.contains(QLatin1Char('\\')) ||
        name.contains(QLatin1Char(':')) || name.contains(QChar(0))) {
        return false;
    }
    const QStringList parts = name.split(QLatin1Char('/'));
    return std::none_of(parts.begin(), parts.end(), [](const QString& part) {
        return part.isEmpty() || part == QLatin1String("..") || part == QLatin1String(".");
    });
}

bool ReadInfo(const QJsonObject& manifest, FirmwareBundle::InfoType& info, QString& error) {
    const QJsonObject build = manifest.value(QLatin1String("build")).toObject();
    if (build.isEmpty()) {
        error = QStringLiteral("\"build\" is missing or empty");
        return false;
    }
    QString time;
    if (!ReadText(build, "time", time, error) || !ReadText(build, "version", info.version, error) ||
        !ReadText(build, "name", info.name, error) ||
        !ReadText(build, "commit", info.commit, error) ||
        !ReadText(build, "branch", info.branch, error) ||
        !ReadText(build, "tag", info.tag, error) ||
        !ReadFlag(build, "isRelease", info.isRelease, error) ||
        !ReadFlag(build, "fromBuildServer", info.fromBuildServer, error)) {
        return false;
    }
    if (!time.isEmpty()) {
        info.time = QDateTime::fromString(time, Qt::ISODateWithMs);
        if (!info.time.isValid()) {
            error = QStringLiteral("\"time\" is not an ISO 8601 date-time: %1").arg(time);
            return false;
        }
    }
    return true;
}

bool ReadImageEntry(const QJsonValue& entry, FirmwareBundle::ImageType& image, QString& error) {
    if (!entry.isObject()) {
        error = QStringLiteral("an image entry is not an object");
        return false;
    }
    const QJsonObject object = entry.toObject();
    if (!ReadText(object, "device", image.device, error) || !ReadBank(object, image.bank, error) ||
        !ReadText(object, "base", image.base, error) ||
        !ReadText(object, "target", image.target, error) ||
        !ReadText(object, "filename", image.filename, error)) {
        return false;
    }
    if (image.device.trimmed().isEmpty()) {
        error = QStringLiteral("an image names no \"device\"");
        return false;
    }
    if (!IsPlainMemberName(image.filename)) {
        error = QStringLiteral("image member name not allowed: \"%1\"").arg(image.filename);
        return false;
    }
    return true;
}

bool ReadImages(common::ArchiveReaderInterface& reader, const QJsonObject& manifest,
                QList<FirmwareBundle::ImageType>& images, QString& error) {
    const QJsonArray entries = manifest.value(QLatin1String("images")).toArray();
    if (entries.isEmpty() || entries.size() > FirmwareBundle::kMaxImages) {
        error =
            QStringLiteral("\"images\" must list 1 to %1 images").arg(FirmwareBundle::kMaxImages);
        return false;
    }
    QSet<QString> banks;
    qint64 total = 0;
    for (const auto& entry : entries) {
        FirmwareBundle::ImageType image;
        if (!ReadImageEntry(entry, image, error)) {
            return false;
        }
        const QString bankKey =
            image.device.trimmed() + QLatin1Char('\n') + QString::number(image.bank);
        if (banks.contains(bankKey)) {
            error = QStringLiteral("two images for %1").arg(image.label());
            return false;
        }
        banks.insert(bankKey);
        QString readError;
        if (!reader.readMember(image.filename, FirmwareBundle::kMaxImageSize, image.data,
                               readError)) {
            error = QStringLiteral("image %1: %2").arg(image.label(), readError);
            return false;
        }
        if (image.data.isEmpty()) {
            error = QStringLiteral("image %1 is empty").arg(image.label());
            return false;
        }
        total += image.data.size();
        if (total > FirmwareBundle::kMaxImagesSize) {
            error = QStringLiteral("the images hold more than %1 bytes together")
                        .arg(FirmwareBundle::kMaxImagesSize);
            return false;
        }
        images.append(image);
    }
    return true;
}

} // namespace

QString FirmwareBundle::ImageType::label() const {
    return QStringLiteral("%1 (%2)").arg(device).arg(bank);
}

std::optional<FirmwareBundle> FirmwareBundle::read(common::ArchiveReaderInterface& reader,
                                                   const QString& path, QString& error) {
    if (!reader.open(path, error)) {
        return std::nullopt;
    }
    std::optional<FirmwareBundle> bundle = readOpen(reader, error);
    reader.close();
    return bundle;
}

std::optional<FirmwareBundle> FirmwareBundle::readOpen(common::ArchiveReaderInterface& reader,
                                                       QString& error) {
    QByteArray manifestBytes;
    const QString manifestName = QString::fromLatin1(kManifestName);
    if (!reader.readMember(manifestName, kMaxManifestSize, manifestBytes, error)) {
        return std::nullopt;
    }
    QJsonParseError parseError{};
    const QJsonDocument manifest = QJsonDocument::fromJson(manifestBytes, &parseError);
    if (manifest.isNull() || !manifest.isObject()) {
        error = parseError.error != QJsonParseError::NoError
                    ? QStringLiteral("%1: %2").arg(manifestName, parseError.errorString())
                    : QStringLiteral("%1 is not a JSON object").arg(manifestName);
        return std::nullopt;
    }
    FirmwareBundle bundle;
    if (!ReadInfo(manifest.object(), bundle.mInfo, error) ||
        !ReadImages(reader, manifest.object(), bundle.mImages, error)) {
        return std::nullopt;
    }
    return bundle;
}

QList<FirmwareBundle::ImageType> FirmwareBundle::imagesFor(const QString& deviceModel) const {
    const QString wanted = deviceModel.trimmed();
    QList<ImageType> matching;
    for (const ImageType& image : mImages) {
        if (!wanted.isEmpty() && image.device.trimmed() == wanted) {
            matching.append(image);
        }
    }
    return matching;
}

} // namespace firmwareUpdate
