#include "ScreenDriver.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Instantiation/ApplicationCore.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

namespace testsupport {

namespace {

QQuickItem* findVisible(QQuickItem* item, const QString& objectName) {
    if (item == nullptr || !item->isVisible()) {
        return nullptr;
    }
    if (item->objectName() == objectName) {
        return item;
    }
    for (QQuickItem* child : item->childItems()) {
        if (QQuickItem* found = findVisible(child, objectName)) {
            return found;
        }
    }
    return nullptr;
}

// Scrolls every flickable around `item` so that the item is in view, as a user would.
void scrollIntoView(QQuickItem* item) {
    for (QQuickItem* parent = item->parentItem(); parent != nullptr;
         parent = parent->parentItem()) {
        if (!parent->inherits("QQuickFlickable")) {
            continue;
        }
        QQuickItem* content = parent->property("contentItem").value<QQuickItem*>();
        const QRectF box = item->mapRectToItem(content, item->boundingRect());
        const qreal top = parent->property("contentY").toReal();
        const qreal height = parent->height();
        if (box.top() < top) {
            parent->setProperty("contentY", box.top());
        } else if (box.bottom() > top + height) {
            parent->setProperty("contentY", box.bottom() - height);
        }
    }
}

} // namespace

ScreenDriver::ScreenDriver(const QStringList& simulatorArguments)
    : mArguments(simulatorArguments) {}

ScreenDriver::~ScreenDriver() {
    mEngine.reset();
    mCore.reset();
}

bool ScreenDriver::start(QString& error) {
    const QString port = mSimulator.start(QStringList{QStringLiteral("--pty")} + mArguments);
    if (port.isEmpty()) {
        error = QStringLiteral("the pump simulator did not start");
        return false;
    }
    // The identity the entry routine gives the application: the screens compare versions.
    QCoreApplication::setApplicationName(QStringLiteral("Brackwater Link"));
    QCoreApplication::setApplicationVersion(QStringLiteral(BWL_VERSION));
    communication::objects::registerProtocolObjectMetaTypes();
    mCore =
        std::make_unique<common::ApplicationCore>(*QCoreApplication::instance(), QStringList{port});
    mEngine = std::make_unique<QQmlApplicationEngine>();
    mEngine->addImportPath(QStringLiteral("qrc:/"));
    mEngine->load(QUrl(QStringLiteral("qrc:/BwUI/main.qml")));
    if (mEngine->rootObjects().isEmpty()) {
        error = QStringLiteral("the screens did not load");
        return false;
    }
    mWindow = qobject_cast<QQuickWindow*>(mEngine->rootObjects().front());
    if (mWindow == nullptr) {
        error = QStringLiteral("the root object is not a window");
        return false;
    }
    mWindow->show();
    return QTest::qWaitForWindowExposed(mWindow);
}

bool ScreenDriver::waitForMainScreen(int timeoutMs) {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < timeoutMs) {
        if (find(QStringLiteral("mainScreen")) != nullptr &&
            find(QStringLiteral("startUp"))->property("currentPage").toString() ==
                QStringLiteral("mainScreen")) {
            wait(400); // the page's fade
            return true;
        }
        wait(20);
    }
    return false;
}

QQuickItem* ScreenDriver::find(const QString& objectName) const {
    if (QQuickItem* found = findVisible(mWindow->contentItem(), objectName)) {
        return found;
    }
    // Popups live on the window's overlay.
    return findVisible(mWindow->contentItem()->parentItem(), objectName);
}

bool ScreenDriver::reveal(const QString& objectName) {
    QQuickItem* item = find(objectName);
    if (item == nullptr) {
        return false;
    }
    scrollIntoView(item);
    wait(50);
    return true;
}

bool ScreenDriver::click(const QString& objectName) {
    QQuickItem* item = find(objectName);
    if (item == nullptr) {
        return false;
    }
    scrollIntoView(item);
    wait(20);
    const QPointF centre = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(mWindow, Qt::LeftButton, Qt::NoModifier, centre.toPoint());
    wait(50);
    return true;
}

bool ScreenDriver::type(const QString& objectName, const QString& text) {
    QQuickItem* item = find(objectName);
    if (item == nullptr) {
        return false;
    }
    item->forceActiveFocus(Qt::TabFocusReason);
    wait(20);
    QTest::keyClick(mWindow, Qt::Key_A, Qt::ControlModifier);
    for (const QChar character : text) {
        QTest::keyClick(mWindow, character.toLatin1());
    }
    QTest::keyClick(mWindow, Qt::Key_Return);
    wait(50);
    return true;
}

void ScreenDriver::wait(int milliseconds) {
    QTest::qWait(milliseconds);
}

QStringList ScreenDriver::simulator(const QString& command, int timeoutMs) {
    QProcess& process = mSimulator.process();
    process.readAllStandardOutput();
    process.write((command + QLatin1Char('\n')).toLocal8Bit());
    QElapsedTimer clock;
    clock.start();
    QByteArray answer;
    while (clock.elapsed() < timeoutMs) {
        process.waitForReadyRead(50);
        answer += process.readAllStandardOutput();
        if (!answer.isEmpty() && answer.endsWith('\n')) {
            wait(30); // a multi-line answer may still be on its way
            answer += process.readAllStandardOutput();
            break;
        }
        QCoreApplication::processEvents();
    }
    return QString::fromLocal8Bit(answer).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool ScreenDriver::grab(const QString& path) {
    wait(100);
    return mWindow->grabWindow().save(path);
}

void ScreenDriver::resize(int width, int height) {
    mWindow->resize(width, height);
    wait(300);
}

} // namespace testsupport
