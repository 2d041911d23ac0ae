#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace communication {

/// Why the ports of a scan cannot be opened, as one text for the connecting page. A scan opens
/// one port per tick, so a port's reason is kept until that port opens or leaves the list: the
/// text stays steady while the scan goes round, rather than flickering between ports.
class PortProblems {
public:
    void failed(const QString& portName, const QString& reason);
    void opened(const QString& portName);
    /// Forgets the ports no longer scanned (a USB adapter pulled out, say).
    void keepOnly(const QStringList& portNames);
    void clear() { mReasons.clear(); }

    /// Every reason, in the order of the port names, an empty line between two; empty when
    /// every port opened.
    QString text() const;

private:
    QMap<QString, QString> mReasons;
};

} // namespace communication
