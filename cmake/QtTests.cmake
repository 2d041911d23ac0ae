# bwl_add_qt_test(<name> LABEL unit|integration|e2e [SOURCES <files>...] [LIBRARIES <targets>...]
#                 [TIMEOUT <seconds>] [RESOURCE_LOCK <name>] [QML])
# One Qt Test executable, <name>.cpp unless SOURCES are given, run headless as the ctest test
# "<folder>.<name>" with the label. QML links every QML module (for tests that load screens).
function(bwl_add_qt_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "QML" "LABEL;TIMEOUT;RESOURCE_LOCK" "SOURCES;LIBRARIES")
    if(NOT ARG_SOURCES)
        set(ARG_SOURCES ${name}.cpp)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_LIBRARIES})
    if(ARG_QML)
        target_link_libraries(${name} PRIVATE bwl_qml_plugins Qt6::Quick)
    endif()
    _bwl_register_test(${name} "${ARG_LABEL}" "${ARG_TIMEOUT}" "${ARG_RESOURCE_LOCK}")
endfunction()

# bwl_add_quick_test(<name> LABEL unit|integration|e2e QML_DIR <folder> [SOURCES <files>...]
#                    [LIBRARIES <targets>...] [TIMEOUT <seconds>] [RESOURCE_LOCK <name>])
# One Qt Quick Test executable that runs every tst_*.qml in QML_DIR (below the calling folder),
# with every QML module linked. <name>.cpp unless SOURCES are given: it holds
# QUICK_TEST_MAIN_WITH_SETUP, whose setup object builds what the QML imports and adds the
# import path "qrc:/". Registered and run like bwl_add_qt_test.
function(bwl_add_quick_test name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "LABEL;TIMEOUT;RESOURCE_LOCK;QML_DIR"
                          "SOURCES;LIBRARIES")
    if(NOT ARG_QML_DIR)
        message(FATAL_ERROR "bwl_add_quick_test(${name}): QML_DIR is required")
    endif()
    if(NOT ARG_SOURCES)
        set(ARG_SOURCES ${name}.cpp)
    endif()
    file(GLOB qml_tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_QML_DIR}/tst_*.qml)
    add_executable(${name} ${ARG_SOURCES} ${qml_tests})
    target_compile_definitions(${name} PRIVATE
        QUICK_TEST_SOURCE_DIR="${CMAKE_CURRENT_SOURCE_DIR}/${ARG_QML_DIR}")
    target_link_libraries(${name} PRIVATE Qt6::QuickTest Qt6::Quick bwl_qml_plugins
                          ${ARG_LIBRARIES})
    _bwl_register_test(${name} "${ARG_LABEL}" "${ARG_TIMEOUT}" "${ARG_RESOURCE_LOCK}")
endfunction()

# What both kinds of test share: moc, the project's include root, and the ctest entry.
function(_bwl_register_test name label timeout resource_lock)
    if(NOT label MATCHES "^(unit|integration|e2e)$")
        message(FATAL_ERROR "${name}: LABEL must be unit, integration or e2e")
    endif()
    if(NOT timeout)
        set(timeout 120)
    endif()
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    add_test(NAME ${folder}.${name} COMMAND ${name})
    set_tests_properties(${folder}.${name} PROPERTIES LABELS ${label} TIMEOUT ${timeout}
                         ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    if(resource_lock)
        set_tests_properties(${folder}.${name} PROPERTIES RESOURCE_LOCK ${resource_lock})
    endif()
endfunction()
