#include "Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace bwlib {

Clipboard::Clipboard(QObject* parent) : QObject(parent) {}

void Clipboard::setText(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

QString Clipboard::text() {
    return QGuiApplication::clipboard()->text();
}

} // namespace bwlib
