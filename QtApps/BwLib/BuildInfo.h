#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace bwlib {

/// Which build of the application runs, for "About" and for support: the source revision and
/// the date of the build's configuration.
class BuildInfo : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// For example "a1b2c3d, 2026-11-23"; "unknown" without version control.
    Q_PROPERTY(QString build READ build CONSTANT)

public:
    explicit BuildInfo(QObject* parent = nullptr) : QObject(parent) {}

    static QString build() { return QStringLiteral(BWL_BUILD); }
};

} // namespace bwlib
