#include "FileReader.h"

#include <QFile>

namespace bwlib {

FileReader::FileReader(QObject* parent) : QObject(parent) {}

void FileReader::setSource(const QUrl& source) {
    if (source == mSource) {
        return;
    }
    mSource = source;
    emit sourceChanged();
    mText.clear();
    mError.clear();
    QString path;
    if (source.scheme() == QLatin1String("qrc")) {
        path = QLatin1Char(':') + source.path();
    } else if (source.isLocalFile()) {
        path = source.toLocalFile();
    }
    QFile file(path);
    if (path.isEmpty()) {
        mError = tr("Not a file: %1").arg(source.toString());
    } else if (!file.open(QIODevice::ReadOnly)) {
        mError = tr("Cannot read %1: %2").arg(path, file.errorString());
    } else if (file.size() > kMaxBytes) {
        mError = tr("%1 is too large to show").arg(path);
    } else {
        mText = QString::fromUtf8(file.read(kMaxBytes));
    }
    emit textChanged();
}

} // namespace bwlib
