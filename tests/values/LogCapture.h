#pragma once

#include <QStringList>
#include <QTemporaryDir>

/// Collects the application's log lines ("source:line function - message") while it exists,
/// for tests that check what a value logs.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();

    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// Every line logged since the capture began.
    QStringList lines() const;
    /// How many lines contain `text`.
    int count(const QString& text) const;

private:
    QTemporaryDir mDirectory;
    QString mPath;
};
