#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <cstdint>
#include <optional>

namespace common {
class ArchiveReaderInterface;
}

namespace firmwareUpdate {

/// A firmware bundle: a ZIP archive with a manifest "bundle.json" ("build" describes the build,
/// "images" lists the images and the members that hold them) and the image members. Reading
/// checks the whole bundle, manifest and every image, so that nothing of a broken bundle ever
/// reaches the pump.
///
/// A bundle is refused when: "bundle.json" is missing, larger than kMaxManifestSize or not a
/// JSON object; "build" is missing, empty or holds a field of the wrong JSON type or a "time"
/// that is not ISO 8601; "images" is missing, empty, longer than kMaxImages or holds an entry
/// that is not an object, lacks "device" or "filename", has a "bank" that is not a whole number
/// from 0 to 255, or names a member by an absolute path, a path with "..", a back-slash or a
/// drive; an image member is missing, damaged, empty or larger than kMaxImageSize; the images
/// together hold more than kMaxImagesSize; or two images go to the same bank of the same device.
class FirmwareBundle {
public:
    static constexpr qint64 kMaxManifestSize = qint64{64} * 1024;
    static constexpr qint64 kMaxImageSize = qint64{8} * 1024 * 1024;
    static constexpr qint64 kMaxImagesSize = qint64{32} * 1024 * 1024; ///< all images together
    static constexpr qsizetype kMaxImages = 16;
    static constexpr const char* kManifestName = "bundle.json";

    struct InfoType {
        QDateTime time; ///< invalid when the manifest gives none
        QString version;
        QString name;
        QString commit;
        QString branch;
        QString tag;
        bool isRelease = false;
        bool fromBuildServer = false;
    };

    struct ImageType {
        QString device; ///< the device model (part number) the image is for
        std::uint8_t bank = 0;
        QString base;
        QString target;
        QString filename;
        QByteArray data; ///< the member's bytes, read and checked

        /// "device (bank)", as the screens list the image.
        QString label() const;
    };

    /// Reads the bundle at `path` through `reader`. Nothing when it is invalid; `error` then
    /// says why (for the log).
    static std::optional<FirmwareBundle> read(common::ArchiveReaderInterface& reader,
                                              const QString& path, QString& error);
    /// The same for a bundle whose archive `reader` has open.
    static std::optional<FirmwareBundle> readOpen(common::ArchiveReaderInterface& reader,
                                                  QString& error);

    const InfoType& info() const { return mInfo; }
    const QList<ImageType>& images() const { return mImages; }
    /// The images whose "device" is `deviceModel`, compared after trimming both, in the order
    /// of the manifest.
    QList<ImageType> imagesFor(const QString& deviceModel) const;

private:
    InfoType mInfo;
    QList<ImageType> mImages;
};

} // namespace firmwareUpdate
