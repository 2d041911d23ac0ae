#pragma once

#include <QColor>
#include <QImage>
#include <QQuickPaintedItem>
#include <QSvgRenderer>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace bwlib {

/// An SVG picture drawn at the item's size and, when `color` is set, in that one colour: the
/// product's icons are single-colour drawings that the screens tint by state. (Qt's graphical
/// effects do nothing under the software renderer, so the tint is drawn here.) A source that
/// cannot be read draws nothing and is logged once.
class SvgImg : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    /// The picture: a "qrc:" or "file:" URL of an SVG file.
    Q_PROPERTY(QUrl source READ source WRITE setSource NOTIFY sourceChanged)
    /// The colour every drawn pixel takes; no tint while not valid (the default).
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit SvgImg(QQuickItem* parent = nullptr);

    QUrl source() const { return mSource; }
    void setSource(const QUrl& source);
    QColor color() const { return mColor; }
    void setColor(const QColor& color);

    void paint(QPainter* painter) override;

signals:
    void sourceChanged();
    void colorChanged();

private:
    QUrl mSource;
    QColor mColor;
    QSvgRenderer mRenderer;
};

} // namespace bwlib
