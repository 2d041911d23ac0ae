#pragma once

#include "ProgressLine.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

class QIODevice;

namespace cli {

/// Everything brackwater-cli prints. Standard output carries only the command's result, so that
/// a script can take it as it is: lines of text, or with --json one JSON document written when
/// the command ends,
///
///     {"command": "info", "exitStatus": 0, "ok": true, ...the command's fields...}
///
/// with "error" (the failure text) when it failed, or, for a command that streams (watch), one
/// JSON object per line as things happen. Standard error carries what a person watching needs:
/// failure texts, notices and the progress line.
class CliOutput {
public:
    CliOutput(bool json, QIODevice& standardOutput, QIODevice& standardError,
              bool standardErrorIsTerminal);

    bool isJson() const { return mJson; }
    /// Whether progress is one line redrawn on a terminal (else it is printed line by line).
    bool progressIsRedrawn() const { return mProgress.isTerminal(); }

    /// Text mode: `text` as a line of standard output, at once. JSON mode: nothing.
    void line(const QString& text);
    /// JSON mode: `value` under `key` in the document. Text mode: nothing.
    void field(const QString& key, const QJsonValue& value);
    /// "key: value" in text mode (strings as they are, other values as JSON writes them); the
    /// field `key` in JSON mode.
    void keyValue(const QString& key, const QJsonValue& value);

    /// From now on JSON mode writes objects line by line (record) instead of one document.
    void streamRecords() { mStreaming = true; }
    /// JSON mode, streaming: `record` as one line of standard output, at once.
    void record(const QJsonObject& record);

    /// A line on standard error for the person at the terminal, in both modes.
    void notice(const QString& text);
    /// The failure: its text on standard error, and the document's "error" in JSON mode.
    void error(const QString& text);

    /// The progress line (see ProgressLine::show); notices and errors clear it first.
    void progress(int percent, const QString& text);
    void endProgress();

    /// The end of the command: in JSON mode the document, or for a stream that failed one last
    /// record with "command", "ok", "exitStatus" and "error".
    void finish(const QString& command, int exitStatus);

    /// The form of `value` in a text line.
    static QString textOf(const QJsonValue& value);

private:
    void writeLine(QIODevice& device, const QString& text);

    bool mJson;
    bool mStreaming = false;
    QIODevice& mOut;
    QIODevice& mErr;
    ProgressLine mProgress;
    QJsonObject mDocument;
};

} // namespace cli
