#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace bwlib {

/// Where the application keeps its own files, for the maintenance tab's software resources and
/// for support: the log files and the settings backups in the application's data folder, and
/// the documentation beside the installed program (or the source tree's, in a build).
class ApplicationFolders : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The folder of the log files.
    Q_PROPERTY(QString logFolder READ logFolder CONSTANT)
    /// The folder of the settings saved before firmware updates.
    Q_PROPERTY(QString backupFolder READ backupFolder CONSTANT)
    /// The documentation folder; empty when none is found.
    Q_PROPERTY(QString documentation READ documentation CONSTANT)

public:
    explicit ApplicationFolders(QObject* parent = nullptr);

    static QString logFolder();
    static QString backupFolder();
    static QString documentation();
};

} // namespace bwlib
