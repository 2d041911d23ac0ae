#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace testsupport {

/// What one run of the built brackwater-cli left behind.
struct CliRun {
    int status = -1; // -1 when it did not end in time, or crashed
    QByteArray out;
    QByteArray err;

    QJsonObject json() const;
    QStringList lines() const;
    /// The last line on standard error that is not progress ("[...").
    QString lastWords() const;
    /// For QVERIFY2: what the program said.
    QByteArray said() const { return "stdout:\n" + out + "\nstderr:\n" + err; }
};

/// Sets `process` up to run brackwater-cli with `arguments` as a script would, with neither a
/// window system nor a port list from the environment, and its data and runtime folders in
/// `folder`.
void prepareCli(QProcess& process, const QString& folder, const QStringList& arguments);

/// Runs brackwater-cli to its end, killing it after `limitMs`.
CliRun runCli(const QString& folder, const QStringList& arguments, int limitMs);

} // namespace testsupport
