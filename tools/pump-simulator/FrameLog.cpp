#include "FrameLog.h"

#include "Common/Protocol/MessageCodec.h"

#include <QTextStream>

#include <cstdio>

namespace simulator {

namespace msg = halyard::protocol::message;

bool FrameLog::open(const QString& path, QString& error) {
    if (path.isEmpty()) {
        return true;
    }
    bool ok = false;
    if (path == QLatin1String("-")) {
        ok = mFile.open(stderr, QIODevice::WriteOnly | QIODevice::Text);
    } else {
        mFile.setFileName(path);
        ok = mFile.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text);
    }
    if (!ok) {
        error = QStringLiteral("Cannot open frame log %1: %2").arg(path, mFile.errorString());
    }
    return ok;
}

QString FrameLog::describe(const QByteArray& message) {
    halyard::protocol::ProtocolMessage parsed;
    const auto result = msg::Parse(reinterpret_cast<const std::uint8_t*>(message.constData()),
                                   static_cast<std::size_t>(message.size()), parsed);
    if (result != msg::ParseResult::Ok) {
        return QStringLiteral("unparsable message (%1)").arg(static_cast<int>(result));
    }
    QString text =
        QStringLiteral("id=%1 %2").arg(parsed.id).arg(QLatin1String(msg::TypeName(parsed.type)));
    if (parsed.type == msg::Type::Request) {
        text += QStringLiteral(" obj=%1/%2 attr=%3 op=%4")
                    .arg(parsed.object)
                    .arg(parsed.instance)
                    .arg(parsed.attribute)
                    .arg(QLatin1String(msg::OperationName(parsed.operation)));
    } else if (parsed.type != msg::Type::Nak) {
        text += QStringLiteral(" status=%1").arg(QLatin1String(msg::StatusName(parsed.status)));
    }
    if (parsed.payloadLength > 0) {
        text += QStringLiteral(" payload=%1")
                    .arg(QString::fromLatin1(
                        QByteArray(reinterpret_cast<const char*>(parsed.payload.data()),
                                   parsed.payloadLength)
                            .toHex(' ')));
    }
    return text;
}

void FrameLog::log(std::uint64_t uptimeMs, Direction direction, const QByteArray& frame,
                   const QByteArray& message, const QString& note) {
    if (!enabled()) {
        return;
    }
    QTextStream out(&mFile);
    out << uptimeMs << (direction == Direction::In ? " <- " : " -> ")
        << QString::fromLatin1(frame.toHex(' '));
    out << " | " << (message.isEmpty() ? QStringLiteral("undecodable frame") : describe(message));
    if (!note.isEmpty()) {
        out << " [" << note << ']';
    }
    out << '\n';
    out.flush();
    mFile.flush();
}

} // namespace simulator
