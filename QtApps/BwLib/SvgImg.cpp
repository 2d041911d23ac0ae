#include "SvgImg.h"

#include "QtApps/Common/Logger/Log.h"

#include <QPainter>
#include <QQuickWindow>

namespace bwlib {

namespace {

// "qrc:/x.svg" is the resource ":/x.svg"; a file URL its local path.
QString pathOf(const QUrl& url) {
    if (url.scheme() == QLatin1String("qrc")) {
        return QLatin1Char(':') + url.path();
    }
    return url.isLocalFile() ? url.toLocalFile() : url.toString();
}

} // namespace

SvgImg::SvgImg(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void SvgImg::setSource(const QUrl& source) {
    if (source == mSource) {
        return;
    }
    mSource = source;
    if (source.isEmpty()) {
        mRenderer.load(QByteArray());
    } else if (!mRenderer.load(pathOf(source))) {
        BWL_LOG_WARN("setSource", QStringLiteral("Cannot draw %1").arg(source.toString()));
    }
    const QSize size = mRenderer.isValid() ? mRenderer.defaultSize() : QSize();
    setImplicitSize(size.width(), size.height());
    emit sourceChanged();
    update();
}

void SvgImg::setColor(const QColor& color) {
    if (color == mColor) {
        return;
    }
    mColor = color;
    emit colorChanged();
    update();
}

void SvgImg::paint(QPainter* painter) {
    if (!mRenderer.isValid() || width() <= 0 || height() <= 0) {
        return;
    }
    if (!mColor.isValid()) {
        mRenderer.render(painter, boundingRect());
        return;
    }
    // The drawing's coverage, filled with the colour.
    const qreal scale = window() != nullptr ? window()->effectiveDevicePixelRatio() : 1.0;
    QImage image((size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter tint(&image);
    mRenderer.render(&tint, QRectF(QPointF(0, 0), size()));
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(QRectF(QPointF(0, 0), size()), mColor);
    tint.end();
    painter->drawImage(boundingRect(), image);
}

} // namespace bwlib
