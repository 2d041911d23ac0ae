#pragma once

#include <QByteArray>
#include <QString>

namespace common {

/// Read access to the members of one archive at a time, by name, into memory. Nothing an
/// archive declares about itself is trusted: a member is read only up to the caller's limit and
/// its size and checksum are checked against what was really read.
class ArchiveReaderInterface {
public:
    virtual ~ArchiveReaderInterface() = default;

    /// Opens the archive at `path`, closing any archive opened before. False with `error` set
    /// when the file cannot be read or is not an archive.
    virtual bool open(const QString& path, QString& error) = 0;
    /// The same for an archive held in memory (the bytes are copied).
    virtual bool openBytes(const QByteArray& bytes, QString& error) = 0;
    virtual void close() = 0;

    /// Reads the member `name` whole into `content`. False with `error` set when there is no
    /// such member, it holds more than `maxSize` bytes, or it is damaged (bad compressed data,
    /// a size or CRC-32 that does not match its entry).
    virtual bool readMember(const QString& name, qint64 maxSize, QByteArray& content,
                            QString& error) = 0;
};

} // namespace common
