# bwl_add_qt_test(<name> LABEL unit|integration|e2e [SOURCES <files>...] [LIBRARIES <targets>...]
#                 [TIMEOUT <seconds>] [RESOURCE_LOCK <name>] [QML])
# One Qt Test executable, <name>.cpp unless SOURCES are given, run headless as the ctest test
# "<folder>.<name>" with the label. QML links every QML module (for tests that load screens).
function(bwl_add_qt_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "QML" "LABEL;TIMEOUT;RESOURCE_LOCK" "SOURCES;LIBRARIES")
    if(NOT ARG_LABEL MATCHES "^(unit|integration|e2e)$")
        message(FATAL_ERROR "bwl_add_qt_test(${name}): LABEL must be unit, integration or e2e")
    endif()
    if(NOT ARG_SOURCES)
        set(ARG_SOURCES ${name}.cpp)
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_LIBRARIES})
    if(ARG_QML)
        target_link_libraries(${name} PRIVATE bwl_qml_plugins Qt6::Quick)
    endif()
    get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    add_test(NAME ${folder}.${name} COMMAND ${name})
    set_tests_properties(${folder}.${name} PROPERTIES LABELS ${ARG_LABEL} TIMEOUT ${ARG_TIMEOUT}
                         ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    if(ARG_RESOURCE_LOCK)
        set_tests_properties(${folder}.${name} PROPERTIES RESOURCE_LOCK ${ARG_RESOURCE_LOCK})
    endif()
endfunction()

# bwl_add_quick_test(<name> LABEL unit|integration|e2e SOURCES <setup.cpp>... QML_DIR <dir>
#                    [LIBRARIES <targets>...] [TIMEOUT <seconds>])
# A Qt Quick Test executable: the setup source (QUICK_TEST_MAIN_WITH_SETUP) runs every
# tst_*.qml in QML_DIR with every QML module of the application available.
function(bwl_add_quick_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "LABEL;TIMEOUT;QML_DIR" "SOURCES;LIBRARIES")
    bwl_add_qt_test(${name} LABEL ${ARG_LABEL} TIMEOUT ${ARG_TIMEOUT} SOURCES ${ARG_SOURCES}
                    LIBRARIES Qt6::QuickTest ${ARG_LIBRARIES} QML)
    target_compile_definitions(${name} PRIVATE QUICK_TEST_SOURCE_DIR="${ARG_QML_DIR}")
    file(GLOB qml_tests CONFIGURE_DEPENDS ${ARG_QML_DIR}/tst_*.qml)
    target_sources(${name} PRIVATE ${qml_tests})
endfunction()
