find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Qml Quick QuickControls2 SerialPort
             Svg Network Test QuickTest LinguistTools)
qt_standard_project_setup()
