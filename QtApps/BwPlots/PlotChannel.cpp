#include "PlotChannel.h"

#include "QtApps/Common/Logger/Log.h"

#include <cmath>
#include <limits>

namespace plots {

namespace {
constexpr double kNoFigure = std::numeric_limits<double>::quiet_NaN();
}

PlotChannel::PlotChannel(QObject* parent) : QObject(parent) {}

void PlotChannel::setSource(QObject* source) {
    if (source == mSource) {
        return;
    }
    mSource = source;
    bind();
}

void PlotChannel::setPropertyName(const QString& name) {
    if (name == mPropertyName) {
        return;
    }
    mPropertyName = name;
    bind();
}

void PlotChannel::setField(const QString& name) {
    if (name == mFieldName) {
        return;
    }
    mFieldName = name;
    emit sourceChanged();
}

// Finds the property once, and follows its notify signal, so that a plot sampling on change
// hears of each new figure without any QML running.
void PlotChannel::bind() {
    disconnect(mNotifyConnection);
    mProperty = QMetaProperty();
    if (mSource != nullptr && !mPropertyName.isEmpty()) {
        const QMetaObject* type = mSource->metaObject();
        const int index = type->indexOfProperty(mPropertyName.toLatin1().constData());
        if (index >= 0) {
            mProperty = type->property(index);
            if (mProperty.hasNotifySignal()) {
                mNotifyConnection = connect(
                    mSource, mProperty.notifySignal(), this,
                    staticMetaObject.method(staticMetaObject.indexOfSlot("onSourceNotified()")));
            }
        }
    }
    mWarned = false;
    emit sourceChanged();
}

void PlotChannel::onSourceNotified() {
    emit notified();
}

void PlotChannel::setScale(double scale) {
    if (scale == mScale) {
        return;
    }
    mScale = scale;
    emit scaleChanged();
}

void PlotChannel::setAbsolute(bool absolute) {
    if (absolute == mAbsolute) {
        return;
    }
    mAbsolute = absolute;
    emit scaleChanged();
}

void PlotChannel::setName(const QString& name) {
    if (name == mName) {
        return;
    }
    mName = name;
    emit lookChanged();
}

void PlotChannel::setUnit(const QString& unit) {
    if (unit == mUnit) {
        return;
    }
    mUnit = unit;
    emit lookChanged();
}

void PlotChannel::setColor(const QColor& color) {
    if (color == mColor) {
        return;
    }
    mColor = color;
    emit lookChanged();
}

void PlotChannel::setDashed(bool dashed) {
    if (dashed == mDashed) {
        return;
    }
    mDashed = dashed;
    emit lookChanged();
}

void PlotChannel::setAxis(int axis) {
    if (axis == mAxis) {
        return;
    }
    mAxis = axis;
    emit lookChanged();
}

QAbstractSeries* PlotChannel::series() const {
    return qobject_cast<QAbstractSeries*>(mSeries.data());
}

void PlotChannel::setSeries(QAbstractSeries* series) {
    if (series == mSeries) {
        return;
    }
    mSeries = series;
    emit seriesChanged();
}

double PlotChannel::read() const {
    if (mSource == nullptr) {
        return kNoFigure;
    }
    if (!mProperty.isValid()) {
        // Said once: a screen that names a property its source lacks plots nothing.
        if (!mWarned && !mPropertyName.isEmpty()) {
            mWarned = true;
            BWL_LOG_WARN("read", QStringLiteral("%1 has no property %2")
                                     .arg(QString::fromLatin1(mSource->metaObject()->className()),
                                          mPropertyName));
        }
        return kNoFigure;
    }
    QVariant value = mProperty.read(mSource);
    if (!mFieldName.isEmpty()) {
        const QMetaObject* record = value.metaType().metaObject();
        const int index =
            record != nullptr ? record->indexOfProperty(mFieldName.toLatin1().constData()) : -1;
        if (index < 0) {
            return kNoFigure;
        }
        value = record->property(index).readOnGadget(value.constData());
    }
    bool isNumber = false;
    double figure = value.toDouble(&isNumber);
    if (!isNumber) {
        return kNoFigure;
    }
    figure *= mScale;
    return mAbsolute ? std::fabs(figure) : figure;
}

QString PlotChannel::heading() const {
    const QString name = mName.isEmpty() ? mPropertyName : mName;
    return mUnit.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, mUnit);
}

} // namespace plots
