find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Qml Quick QuickControls2 SerialPort
             Svg Network Test QuickTest LinguistTools Charts)
qt_standard_project_setup()

include(${CMAKE_CURRENT_LIST_DIR}/QmlModules.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/QtTests.cmake)
