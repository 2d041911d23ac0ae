#pragma once

#include <QColor>
#include <QMetaProperty>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <QAbstractSeries>

namespace plots {

/// One line of a live plot: which figure it follows and the chart series that draws it. The
/// figure is a property of a core object (a controller), named as QML names it, optionally a
/// field of a record property (`field: "input"` of an analog filter sample), read in C++ when the
/// plot samples: nothing runs in QML per sample.
///
///     PlotChannel {
///         name: qsTr("Actual speed"); unit: qsTr("RPM"); color: BwColours.accent
///         source: PumpValuesController; propertyName: "pumpActualSpeedDrpm"
///         scale: 0.1; absolute: true
///     }
///
/// The chart (LivePlot) makes the channel's line series and hands it over in `series`.
class PlotChannel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The object whose property is followed; none gives no figure (a gap in the line).
    Q_PROPERTY(QObject* source READ source WRITE setSource NOTIFY sourceChanged)
    /// The property's name.
    Q_PROPERTY(QString propertyName READ propertyName WRITE setPropertyName NOTIFY sourceChanged)
    /// A field of the property's value, when that is a record; empty for the value itself.
    Q_PROPERTY(QString field READ field WRITE setField NOTIFY sourceChanged)
    /// The figure is multiplied by this (0.1 turns tenths of rpm into rpm).
    Q_PROPERTY(double scale READ scale WRITE setScale NOTIFY scaleChanged)
    /// Plot the figure's magnitude (a speed whatever its direction).
    Q_PROPERTY(bool absolute READ absolute WRITE setAbsolute NOTIFY scaleChanged)
    /// The line's name, for the legend and the export's column heading.
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY lookChanged)
    /// The unit of the scaled figure, for the export's column heading.
    Q_PROPERTY(QString unit READ unit WRITE setUnit NOTIFY lookChanged)
    /// The line's colour, and whether it is dashed.
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY lookChanged)
    Q_PROPERTY(bool dashed READ dashed WRITE setDashed NOTIFY lookChanged)
    /// 0 for the left value axis, 1 for the right one.
    Q_PROPERTY(int axis READ axis WRITE setAxis NOTIFY lookChanged)
    /// The chart's line series (a LineSeries) that draws this channel.
    Q_PROPERTY(QAbstractSeries* series READ series WRITE setSeries NOTIFY seriesChanged)

public:
    explicit PlotChannel(QObject* parent = nullptr);

    QObject* source() const { return mSource; }
    void setSource(QObject* source);
    QString propertyName() const { return mPropertyName; }
    void setPropertyName(const QString& name);
    QString field() const { return mFieldName; }
    void setField(const QString& name);
    double scale() const { return mScale; }
    void setScale(double scale);
    bool absolute() const { return mAbsolute; }
    void setAbsolute(bool absolute);
    QString name() const { return mName; }
    void setName(const QString& name);
    QString unit() const { return mUnit; }
    void setUnit(const QString& unit);
    QColor color() const { return mColor; }
    void setColor(const QColor& color);
    bool dashed() const { return mDashed; }
    void setDashed(bool dashed);
    int axis() const { return mAxis; }
    void setAxis(int axis);
    QAbstractSeries* series() const;
    void setSeries(QAbstractSeries* series);

    /// The figure now, scaled; NaN when there is none (no source, an unknown property or field,
    /// a value that is not a number).
    double read() const;
    /// The column heading of an export: the name and the unit.
    QString heading() const;

signals:
    void sourceChanged();
    void scaleChanged();
    void lookChanged();
    void seriesChanged();
    /// The followed property announced a change.
    void notified();

private slots:
    void onSourceNotified();

private:
    void bind();

    QPointer<QObject> mSource;
    QString mPropertyName;
    QString mFieldName;
    QMetaProperty mProperty;
    QMetaObject::Connection mNotifyConnection;
    mutable bool mWarned = false;
    double mScale = 1.0;
    bool mAbsolute = false;
    QString mName;
    QString mUnit;
    QColor mColor;
    bool mDashed = false;
    int mAxis = 0;
    QPointer<QObject> mSeries;
};

} // namespace plots
