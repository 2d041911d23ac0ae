#include "ProgressLine.h"

#include <QIODevice>

#include <algorithm>
#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace cli {

ProgressLine::ProgressLine(QIODevice& device, bool terminal)
    : mDevice(device)
    , mTerminal(terminal) {}

bool ProgressLine::StandardErrorIsTerminal() {
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(fileno(stderr)) != 0;
#endif
}

void ProgressLine::show(int percent, const QString& text) {
    if (!mTerminal) {
        if (text != mLastText) {
            mLastText = text;
            write(text + QLatin1Char('\n'));
        }
        return;
    }
    QString line;
    if (percent >= 0) {
        const int filled = std::clamp(percent, 0, 100) * kBarWidth / 100;
        line = QStringLiteral("[%1%2] ").arg(QString(filled, QLatin1Char('#')),
                                             QString(kBarWidth - filled, QLatin1Char('-')));
    }
    line += text;
    // Blanks over the rest of a longer earlier line.
    const qsizetype shownLength = line.size();
    line = line.leftJustified(mShownLength);
    mShownLength = shownLength;
    write(QLatin1Char('\r') + line);
}

void ProgressLine::clear() {
    if (mTerminal && mShownLength > 0) {
        write(QLatin1Char('\r') + QString(mShownLength, QLatin1Char(' ')) + QLatin1Char('\r'));
    }
    mShownLength = 0;
    mLastText.clear();
}

void ProgressLine::write(const QString& text) {
    mDevice.write(text.toUtf8());
}

} // namespace cli
