// Every controller the screens use, reached through its "cpp." QML module from a real core: a
// registration, naming or type mistake fails here rather than in a screen.
#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Instantiation/ApplicationCore.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QtQuickTest>

#include <memory>

class Setup : public QObject {
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine* engine) {
        communication::objects::registerProtocolObjectMetaTypes();
        // No pump: the core's session is never started, so no port is opened.
        mCore = std::make_unique<common::ApplicationCore>(*QCoreApplication::instance(),
                                                          QStringList{QStringLiteral("none")});
        engine->addImportPath(QStringLiteral("qrc:/"));
    }
    void cleanupTestCase() { mCore.reset(); }

private:
    std::unique_ptr<common::ApplicationCore> mCore;
};

QUICK_TEST_MAIN_WITH_SETUP(tst_ControllersQml, Setup)
#include "tst_ControllersQml.moc"
