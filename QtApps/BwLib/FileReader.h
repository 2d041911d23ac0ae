#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace bwlib {

/// The text of a small file for a screen (a licence, a release note): set `source` and read
/// `text`. Reads resources ("qrc:") and local files, at most 1 MB; anything else, or a file that
/// cannot be read, leaves `text` empty and says why in `error`.
class FileReader : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The file: a "qrc:" or "file:" URL.
    Q_PROPERTY(QUrl source READ source WRITE setSource NOTIFY sourceChanged)
    /// The file's text (UTF-8), empty until read.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)
    /// Why the file could not be read; empty when it could.
    Q_PROPERTY(QString error READ error NOTIFY textChanged)

public:
    static constexpr qint64 kMaxBytes = qint64{1024} * 1024;

    explicit FileReader(QObject* parent = nullptr);

    QUrl source() const { return mSource; }
    void setSource(const QUrl& source);
    QString text() const { return mText; }
    QString error() const { return mError; }

signals:
    void sourceChanged();
    void textChanged();

private:
    QUrl mSource;
    QString mText;
    QString mError;
};

} // namespace bwlib
