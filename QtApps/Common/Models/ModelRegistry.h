#pragma once

#include <QObject>

class QCoreApplication;

namespace communication {
class ControllerRegistry;
}

namespace models {

/// Creates the list models the screens show and registers each as a QML singleton
/// ("cpp." followed by its type name, version 1.0). It is their QObject parent and deletes itself
/// when the application is about to quit. The models arrive with their features.
class ModelRegistry final : public QObject {
    Q_OBJECT

public:
    ModelRegistry(communication::ControllerRegistry& controllers, QCoreApplication& application);
};

} // namespace models
