#pragma once

#include <QFile>
#include <QString>

#include <cstdint>

namespace simulator {

/// Diagnostic log of every frame in both directions: time, direction, the frame in hex and the
/// message decoded, plus what the fault injection did to it.
class FrameLog {
public:
    enum class Direction { In, Out };

    /// An empty path logs nothing; "-" logs to standard error.
    bool open(const QString& path, QString& error);
    bool enabled() const { return mFile.isOpen(); }

    /// `message` holds the decoded message bytes (empty when the frame did not decode).
    void log(std::uint64_t uptimeMs, Direction direction, const QByteArray& frame,
             const QByteArray& message, const QString& note);

    static QString describe(const QByteArray& message);

private:
    QFile mFile;
};

} // namespace simulator
