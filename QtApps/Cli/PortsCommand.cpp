#include "PortsCommand.h"

#include "CliInvocation.h"
#include "CliOutput.h"
#include "PortProbe.h"

#include "QtApps/Common/Core/Communication/ProtocolComms.h"
#include "QtApps/Common/Instantiation/ApplicationCore.h"

#include <QJsonObject>
#include <QSerialPortInfo>

namespace cli {

void PortsCommand::run() {
    QStringList ports;
    const auto listed = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& port : listed) {
        ports << port.portName();
    }
    for (const QString& port : invocation().ports) {
        if (!ports.contains(port)) {
            ports << port;
        }
    }
    communication::ProtocolComms& comms = core().comms();
    // Built on the link's thread, as a child of the comms object it drives.
    QMetaObject::invokeMethod(
        &comms,
        [this, &comms, ports] {
            auto* probe = new PortProbe(comms, ports, &comms);
            connect(probe, &PortProbe::probed, this, &PortsCommand::onProbed, Qt::QueuedConnection);
            connect(probe, &PortProbe::finished, this, &PortsCommand::onFinished,
                    Qt::QueuedConnection);
            connect(probe, &PortProbe::finished, probe, &QObject::deleteLater);
            probe->start();
        },
        Qt::QueuedConnection);
}

void PortsCommand::onProbed(const QString& port, const QString& version,
                            const QString& openFailure) {
    QJsonObject entry{{QStringLiteral("port"), port}};
    const QSerialPortInfo info(port);
    if (!info.description().isEmpty()) {
        entry.insert(QStringLiteral("description"), info.description());
    }
    if (!version.isEmpty()) {
        mAnswered = true;
        output().line(QStringLiteral("%1: Protocol v%2").arg(port, version));
        entry.insert(QStringLiteral("protocolVersion"), version);
    } else if (!openFailure.isEmpty()) {
        output().line(tr("%1: cannot be opened").arg(port));
        entry.insert(QStringLiteral("error"), openFailure);
    } else {
        output().line(tr("%1: no answer").arg(port));
    }
    entry.insert(QStringLiteral("answered"), !version.isEmpty());
    mPorts.append(entry);
}

void PortsCommand::onFinished() {
    output().field(QStringLiteral("ports"), mPorts);
    if (!mAnswered) {
        output().error(tr("No pump answered"));
        finish(ExitStatus::NoPump);
        return;
    }
    succeed();
}

} // namespace cli
