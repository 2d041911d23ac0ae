#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace bwlib {

/// The system clipboard for the screens ("Copy" of the pump information for a support request).
class Clipboard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit Clipboard(QObject* parent = nullptr);

    /// Puts `text` on the clipboard.
    Q_INVOKABLE static void setText(const QString& text);
    /// What the clipboard holds as text.
    Q_INVOKABLE static QString text();
};

} // namespace bwlib
