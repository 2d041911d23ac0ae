#include "CliOutput.h"

#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>

namespace cli {

CliOutput::CliOutput(bool json, QIODevice& standardOutput, QIODevice& standardError,
                     bool standardErrorIsTerminal)
    : mJson(json)
    , mOut(standardOutput)
    , mErr(standardError)
    , mProgress(standardError, standardErrorIsTerminal) {}

void CliOutput::line(const QString& text) {
    if (!mJson) {
        writeLine(mOut, text);
    }
}

void CliOutput::field(const QString& key, const QJsonValue& value) {
    if (mJson) {
        mDocument.insert(key, value);
    }
}

void CliOutput::keyValue(const QString& key, const QJsonValue& value) {
    if (mJson) {
        mDocument.insert(key, value);
    } else {
        writeLine(mOut, QStringLiteral("%1: %2").arg(key, textOf(value)));
    }
}

void CliOutput::record(const QJsonObject& record) {
    if (mJson) {
        writeLine(mOut, QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact)));
    }
}

void CliOutput::notice(const QString& text) {
    mProgress.clear();
    writeLine(mErr, text);
}

void CliOutput::error(const QString& text) {
    notice(text);
    mDocument.insert(QStringLiteral("error"), text);
}

void CliOutput::progress(int percent, const QString& text) {
    mProgress.show(percent, text);
}

void CliOutput::endProgress() {
    mProgress.clear();
}

void CliOutput::finish(const QString& command, int exitStatus) {
    mProgress.clear();
    // A stream that ran its course has said everything in its records.
    if (!mJson || (mStreaming && exitStatus == 0)) {
        return;
    }
    QJsonObject document = mDocument;
    document.insert(QStringLiteral("command"), command);
    document.insert(QStringLiteral("ok"), exitStatus == 0);
    document.insert(QStringLiteral("exitStatus"), exitStatus);
    if (mStreaming) {
        record(document);
    } else {
        mOut.write(QJsonDocument(document).toJson(QJsonDocument::Indented));
    }
}

QString CliOutput::textOf(const QJsonValue& value) {
    switch (value.type()) {
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Array: {
        QStringList items;
        const QJsonArray array = value.toArray();
        for (const auto& item : array) {
            items << textOf(item);
        }
        return items.join(QStringLiteral(", "));
    }
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
        return QString::number(value.toDouble(), 'g', 12);
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        return QString();
    case QJsonValue::Object:
        break;
    }
    return QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
}

void CliOutput::writeLine(QIODevice& device, const QString& text) {
    device.write(text.toUtf8() + '\n');
}

} // namespace cli
