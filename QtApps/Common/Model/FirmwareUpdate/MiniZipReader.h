#pragma once

#include "ArchiveReaderInterface.h"

#include <QObject>

#include <memory>

class QIODevice;

namespace common {

/// ZIP archives read with zlib's minizip (the unzip API, which minizip-ng keeps as well). The
/// archive's bytes come through a QIODevice, so a file opens by any path the platform allows
/// and an archive in memory reads the same way.
///
/// Archives of more than kMaxMembers members are refused. A member is read in pieces and given
/// up as soon as it passes the caller's limit, whatever its entry declares; the CRC-32 and size
/// of what was read are compared with the entry's.
class MiniZipReader final : public QObject, public ArchiveReaderInterface {
    Q_OBJECT

public:
    static constexpr quint64 kMaxMembers = 1024;

    explicit MiniZipReader(QObject* parent = nullptr);
    ~MiniZipReader() override;

    bool open(const QString& path, QString& error) override;
    bool openBytes(const QByteArray& bytes, QString& error) override;
    void close() override;
    bool readMember(const QString& name, qint64 maxSize, QByteArray& content,
                    QString& error) override;

private:
    bool openDevice(std::unique_ptr<QIODevice> device, QString& error);
    bool readCurrentMember(const QString& name, qint64 maxSize, QByteArray& content,
                           QString& error);

    std::unique_ptr<QIODevice> mDevice;
    void* mArchive = nullptr; // unzFile
};

} // namespace common
