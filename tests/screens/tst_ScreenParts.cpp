// The screens' reusable parts in Qt Quick Test: the quantity input, the tabs, the snackbar, the
// side panel's states and the pump-status texts. The side panel binds the controllers, so a real
// core (with no pump) is built for it.
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
        mCore = std::make_unique<common::ApplicationCore>(*QCoreApplication::instance(),
                                                          QStringList{QStringLiteral("none")});
        engine->addImportPath(QStringLiteral("qrc:/"));
    }
    void cleanupTestCase() { mCore.reset(); }

private:
    std::unique_ptr<common::ApplicationCore> mCore;
};

QUICK_TEST_MAIN_WITH_SETUP(tst_ScreenParts, Setup)
#include "tst_ScreenParts.moc"
