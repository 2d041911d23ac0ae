#pragma once

#include <QStringList>

#include <memory>

namespace testsupport {

class CaptureAppender;

/// Records every log line written while it exists (from any thread), as "LEVEL message", where
/// the message is "source/path:line function - text". Tests wait on it with QTRY_VERIFY.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    QStringList lines() const;
    /// Lines that contain `text`.
    int count(const QString& text) const;
    bool contains(const QString& text) const { return count(text) > 0; }
    void clear();

private:
    std::shared_ptr<CaptureAppender> mAppender;
};

} // namespace testsupport
