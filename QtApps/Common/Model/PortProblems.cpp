#include "PortProblems.h"

namespace communication {

void PortProblems::failed(const QString& portName, const QString& reason) {
    mReasons.insert(portName, reason);
}

void PortProblems::opened(const QString& portName) {
    mReasons.remove(portName);
}

void PortProblems::keepOnly(const QStringList& portNames) {
    mReasons.removeIf([&portNames](const auto& entry) { return !portNames.contains(entry.key()); });
}

QString PortProblems::text() const {
    return QStringList(mReasons.values()).join(QStringLiteral("\n\n"));
}

} // namespace communication
