#include "ApplicationFolders.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace bwlib {

ApplicationFolders::ApplicationFolders(QObject* parent) : QObject(parent) {}

QString ApplicationFolders::logFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString ApplicationFolders::backupFolder() {
    return QDir(logFolder()).filePath(QStringLiteral("backups"));
}

QString ApplicationFolders::documentation() {
    const QDir program(QCoreApplication::applicationDirPath());
    for (const QString& candidate :
         {QStringLiteral("../share/doc/brackwater-link"), QStringLiteral("../../../docs")}) {
        if (program.exists(candidate)) {
            return QDir::cleanPath(program.filePath(candidate));
        }
    }
    return {};
}

} // namespace bwlib
