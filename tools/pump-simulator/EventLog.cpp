#include "EventLog.h"

namespace simulator {

void EventLog::add(std::uint64_t uptimeMs, const QString& text) {
    QString entry = QStringLiteral("%1:%2").arg(uptimeMs).arg(text);
    entry.truncate(kMaxEntryLength);
    mEntries.append(entry);
    if (mEntries.size() > kCapacity) {
        mEntries.removeFirst();
        mCursor = qMax(0, mCursor - 1);
    }
}

void EventLog::clear() {
    mEntries.clear();
    mCursor = 0;
}

QString EventLog::first() {
    mCursor = 0;
    return next();
}

QString EventLog::next() {
    if (mCursor >= mEntries.size()) {
        return {};
    }
    return mEntries.at(mCursor++);
}

} // namespace simulator
