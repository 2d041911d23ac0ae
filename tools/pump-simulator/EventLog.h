#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace simulator {

/// The pump's event log: one text entry per thing that happened, "<ms>:<text>" with the pump's
/// uptime in milliseconds. The application reads it with a first/next cursor; reading past the
/// last entry gives an empty entry, which ends the read.
class EventLog {
public:
    static constexpr int kMaxEntryLength = 139; // without the NUL
    static constexpr int kCapacity = 200;       // the oldest entries give way

    void add(std::uint64_t uptimeMs, const QString& text);
    void clear();

    /// Rewinds the cursor and returns the first entry (empty when the log is empty).
    QString first();
    /// Returns the entry after the previous one read (empty at the end).
    QString next();

    const QStringList& entries() const { return mEntries; }

private:
    QStringList mEntries;
    int mCursor = 0;
};

} // namespace simulator
