#include "MiniZipReader.h"

#include <QBuffer>
#include <QFile>

#include <unzip.h>
#include <zlib.h>

namespace common {

namespace {

constexpr unsigned kReadChunk = 64U * 1024U;

// minizip's file functions over the QIODevice passed as `opaque` (already open for reading).
voidpf ZCALLBACK OpenDevice(voidpf opaque, const void* /*filename*/, int /*mode*/) {
    return opaque;
}

uLong ZCALLBACK ReadDevice(voidpf /*opaque*/, voidpf stream, void* buffer, uLong size) {
    const qint64 count = static_cast<QIODevice*>(stream)->read(static_cast<char*>(buffer),
                                                               static_cast<qint64>(size));
    return count > 0 ? static_cast<uLong>(count) : 0;
}

uLong ZCALLBACK WriteDevice(voidpf /*opaque*/, voidpf /*stream*/, const void* /*buffer*/,
                            uLong /*size*/) {
    return 0;
}

ZPOS64_T ZCALLBACK TellDevice(voidpf /*opaque*/, voidpf stream) {
    return static_cast<ZPOS64_T>(static_cast<QIODevice*>(stream)->pos());
}

long ZCALLBACK SeekDevice(voidpf /*opaque*/, voidpf stream, ZPOS64_T offset, int origin) {
    auto* device = static_cast<QIODevice*>(stream);
    if (offset > static_cast<ZPOS64_T>(std::numeric_limits<qint64>::max())) {
        return -1;
    }
    const auto distance = static_cast<qint64>(offset);
    qint64 target = 0;
    switch (origin) {
    case ZLIB_FILEFUNC_SEEK_SET:
        target = distance;
        break;
    case ZLIB_FILEFUNC_SEEK_CUR:
        target = device->pos() + distance;
        break;
    case ZLIB_FILEFUNC_SEEK_END:
        target = device->size() + distance;
        break;
    default:
        return -1;
    }
    return target >= 0 && target <= device->size() && device->seek(target) ? 0 : -1;
}

int ZCALLBACK CloseDevice(voidpf /*opaque*/, voidpf /*stream*/) {
    return 0; // the reader owns and closes the device
}

int ZCALLBACK DeviceError(voidpf /*opaque*/, voidpf /*stream*/) {
    return 0;
}

unzFile Archive(void* archive) {
    return static_cast<unzFile>(archive);
}

} // namespace

MiniZipReader::MiniZipReader(QObject* parent) : QObject(parent) {}

MiniZipReader::~MiniZipReader() {
    close();
}

bool MiniZipReader::open(const QString& path, QString& error) {
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly)) {
        close();
        error = QStringLiteral("cannot open %1: %2").arg(path, file->errorString());
        return false;
    }
    return openDevice(std::move(file), error);
}

bool MiniZipReader::openBytes(const QByteArray& bytes, QString& error) {
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    buffer->open(QIODevice::ReadOnly);
    return openDevice(std::move(buffer), error);
}

bool MiniZipReader::openDevice(std::unique_ptr<QIODevice> device, QString& error) {
    close();
    zlib_filefunc64_def functions{};
    functions.zopen64_file = OpenDevice;
    functions.zread_file = ReadDevice;
    functions.zwrite_file = WriteDevice;
    functions.ztell64_file = TellDevice;
    functions.zseek64_file = SeekDevice;
    functions.zclose_file = CloseDevice;
    functions.zerror_file = DeviceError;
    functions.opaque = device.get();
    unzFile archive = unzOpen2_64("", &functions);
    if (archive == nullptr) {
        error = QStringLiteral("not a ZIP archive");
        return false;
    }
    unz_global_info64 info{};
    if (unzGetGlobalInfo64(archive, &info) != UNZ_OK || info.number_entry > kMaxMembers) {
        unzClose(archive);
        error = QStringLiteral("the archive lists %1 members, more than the %2 allowed")
                    .arg(info.number_entry)
                    .arg(kMaxMembers);
        return false;
    }
    mDevice = std::move(device);
    mArchive = archive;
    return true;
}

void MiniZipReader::close() {
    if (mArchive != nullptr) {
        unzClose(Archive(mArchive));
        mArchive = nullptr;
    }
    mDevice.reset();
}

bool MiniZipReader::readMember(const QString& name, qint64 maxSize, QByteArray& content,
                               QString& error) {
    content.clear();
    if (mArchive == nullptr) {
        error = QStringLiteral("no archive is open");
        return false;
    }
    const QByteArray encodedName = name.toUtf8();
    if (unzLocateFile(Archive(mArchive), encodedName.constData(), 1) != UNZ_OK) {
        error = QStringLiteral("no member \"%1\"").arg(name);
        return false;
    }
    const bool read = readCurrentMember(name, maxSize, content, error);
    if (!read) {
        content.clear();
    }
    return read;
}

bool MiniZipReader::readCurrentMember(const QString& name, qint64 maxSize, QByteArray& content,
                                      QString& error) {
    unzFile archive = Archive(mArchive);
    unz_file_info64 entry{};
    if (unzGetCurrentFileInfo64(archive, &entry, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK) {
        error = QStringLiteral("damaged entry of \"%1\"").arg(name);
        return false;
    }
    if (entry.uncompressed_size > static_cast<ZPOS64_T>(maxSize)) {
        error = QStringLiteral("\"%1\" declares %2 bytes, more than the %3 allowed")
                    .arg(name)
                    .arg(entry.uncompressed_size)
                    .arg(maxSize);
        return false;
    }
    if (unzOpenCurrentFile(archive) != UNZ_OK) {
        error = QStringLiteral("cannot read \"%1\"").arg(name);
        return false;
    }
    // Grown as the data really comes, never sized from the entry.
    QByteArray chunk(kReadChunk, Qt::Uninitialized);
    bool complete = true;
    for (;;) {
        const int count = unzReadCurrentFile(archive, chunk.data(), kReadChunk);
        if (count == 0) {
            break;
        }
        if (count < 0) {
            error = QStringLiteral("damaged data in \"%1\"").arg(name);
            complete = false;
            break;
        }
        if (content.size() + count > maxSize) {
            error = QStringLiteral("\"%1\" holds more than the %2 bytes allowed")
                        .arg(name)
                        .arg(maxSize);
            complete = false;
            break;
        }
        content.append(chunk.constData(), count);
    }
    const int closed = unzCloseCurrentFile(archive);
    if (!complete) {
        return false;
    }
    if (closed == UNZ_CRCERROR) {
        error = QStringLiteral("CRC-32 of \"%1\" does not match").arg(name);
        return false;
    }
    // minizip reads no further than the entry declares and checks the CRC only when it got
    // that far: a member shorter than declared is caught here.
    const uLong crc =
        crc32(crc32(0L, Z_NULL, 0), reinterpret_cast<const Bytef*>(content.constData()),
              static_cast<uInt>(content.size()));
    if (static_cast<ZPOS64_T>(content.size()) != entry.uncompressed_size || crc != entry.crc ||
        closed != UNZ_OK) {
        error = QStringLiteral("size or CRC-32 of \"%1\" does not match its entry").arg(name);
        return false;
    }
    return true;
}

} // namespace common
