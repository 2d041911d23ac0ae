#pragma once

#include <QString>

class QIODevice;

namespace cli {

/// Progress of a long command on standard error. On a terminal it is one line redrawn in place:
/// a bar (when the share done is known) and a text. Anywhere else (a pipe, a file, a CI log) it
/// is plain lines, one for each new text, so that a log shows the steps without control
/// characters.
class ProgressLine {
public:
    static constexpr int kBarWidth = 30;

    /// `terminal`: whether `device` is shown on a terminal (see StandardErrorIsTerminal).
    ProgressLine(QIODevice& device, bool terminal);

    /// Whether standard error is a terminal (a console on Windows).
    static bool StandardErrorIsTerminal();

    bool isTerminal() const { return mTerminal; }

    /// Shows `text`, with a bar of `percent` (0 to 100) before it on a terminal; no bar when
    /// `percent` is negative (progress whose end is not known). Off a terminal only a text other
    /// than the last one makes a line.
    void show(int percent, const QString& text);
    /// Ends the progress: on a terminal the line is erased, so that what follows starts clean.
    void clear();

private:
    void write(const QString& text);

    QIODevice& mDevice;
    bool mTerminal;
    QString mLastText;
    qsizetype mShownLength = 0;
};

} // namespace cli
