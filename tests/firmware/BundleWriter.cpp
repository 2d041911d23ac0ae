#include "BundleWriter.h"

#include <zip.h>
#include <zlib.h>

namespace testsupport {

bool WriteZip(const QString& path, const QList<ZipMember>& members) {
    zipFile archive = zipOpen64(path.toLocal8Bit().constData(), APPEND_STATUS_CREATE);
    if (archive == nullptr) {
        return false;
    }
    bool written = true;
    for (const ZipMember& member : members) {
        zip_fileinfo info{};
        const bool raw = member.declaredCrc.has_value() || member.declaredSize.has_value();
        const int method = raw ? 0 : Z_DEFLATED;
        written = written &&
                  zipOpenNewFileInZip2_64(archive, member.name.constData(), &info, nullptr, 0,
                                          nullptr, 0, nullptr, method, Z_DEFAULT_COMPRESSION,
                                          raw ? 1 : 0, 0) == ZIP_OK &&
                  zipWriteInFileInZip(archive, member.data.constData(),
                                      static_cast<unsigned>(member.data.size())) == ZIP_OK;
        if (raw) {
            const uLong crc = member.declaredCrc.value_or(
                crc32(0, reinterpret_cast<const Bytef*>(member.data.constData()),
                      static_cast<uInt>(member.data.size())));
            const ZPOS64_T size =
                member.declaredSize.value_or(static_cast<quint64>(member.data.size()));
            written = written && zipCloseFileInZipRaw64(archive, size, crc) == ZIP_OK;
        } else {
            written = written && zipCloseFileInZip(archive) == ZIP_OK;
        }
    }
    return zipClose(archive, nullptr) == ZIP_OK && written;
}

QByteArray FirmwareImage(int size, const char* version) {
    QByteArray image;
    if (version != nullptr) {
        const QList<QByteArray> numbers = QByteArray(version).split('.');
        image = QByteArray("BWFW");
        for (const QByteArray& number : numbers) {
            image.append(static_cast<char>(number.toInt()));
        }
        image.append('\0');
    }
    quint32 state = static_cast<quint32>(size);
    while (image.size() < size) {
        state = state * 1103515245U + 12345U;
        image.append(static_cast<char>(state >> 24));
    }
    image.truncate(size);
    return image;
}

QByteArray Manifest(const char* imagesJson) {
    return QByteArray(R"({"build": {"version": "1.17.0", "time": "2026-11-20T14:30:00Z",
                       "name": "test bundle"}, "images": )") +
           imagesJson + "}";
}

} // namespace testsupport
