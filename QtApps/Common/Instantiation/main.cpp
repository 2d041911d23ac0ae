#include "ApplicationCore.h"
#include "CommandLine.h"
#include "Translations.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Logger/LogSetup.h"

#include <QApplication>
#include <QIcon>
#include <QQmlApplicationEngine>
#include <QThread>
#include <QUrl>

namespace {
constexpr const char* kApplicationName = "Brackwater Link";
constexpr const char* kOrganisationName = "Brackwater";
constexpr const char* kOrganisationDomain = "brackwater.example";
constexpr const char* kMainQml = "qrc:/BwUI/main.qml";

void SetIdentity() {
    QCoreApplication::setApplicationName(QString::fromLatin1(kApplicationName));
    QCoreApplication::setOrganizationName(QString::fromLatin1(kOrganisationName));
    QCoreApplication::setOrganizationDomain(QString::fromLatin1(kOrganisationDomain));
    QCoreApplication::setApplicationVersion(QStringLiteral(BWL_VERSION));
}

// --help and --version answer without a window system, so they work over a plain terminal.
bool AsksOnlyForInformation(int argc, char* argv[]) {
    for (int i = 1; i < argc; ++i) {
        const QByteArray argument(argv[i]);
        if (argument == "-h" || argument == "--help" || argument == "-?" || argument == "-v" ||
            argument == "--version" || argument == "--help-all") {
            return true;
        }
    }
    return false;
}
} // namespace

// Qt 6 always scales for high-DPI screens; there is no attribute left to set for it.
int main(int argc, char* argv[]) {
    if (AsksOnlyForInformation(argc, argv)) {
        QCoreApplication information(argc, argv);
        SetIdentity();
        common::ParseCommandLine(information); // prints and exits
        return EXIT_SUCCESS;
    }

    QApplication application(argc, argv);
    QThread::currentThread()->setObjectName(QStringLiteral("MainThread"));
    SetIdentity();
    QApplication::setApplicationDisplayName(
        QStringLiteral("%1 (V%2)")
            .arg(QApplication::applicationName(), QApplication::applicationVersion()));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/Brackwater.ico")));

    const common::CommandLineOptions options = common::ParseCommandLine(application);
    logger::ConfigureDefaults();
    logger::InstallQtMessageHandler();

    common::Translations translations;
    translations.InstallTranslators();

    communication::objects::registerProtocolObjectMetaTypes();
    common::ApplicationCore core(application, options.portNames, logger::ConsoleEcho::AsConfigured,
                                 options.recordPath);

    QQmlApplicationEngine engine;
    const QUrl mainUrl(QString::fromLatin1(kMainQml));
    QObject::connect(
        &engine, &QQmlApplicationEngine::objectCreated, &application,
        [mainUrl](QObject* object, const QUrl& url) {
            if (object == nullptr && url == mainUrl) {
                QCoreApplication::exit(EXIT_FAILURE);
            }
        },
        Qt::QueuedConnection);
    engine.addImportPath(QStringLiteral("qrc:/"));
    engine.load(mainUrl);

    return QApplication::exec();
}
