# QML modules of the screens and of the core's "cpp." singletons, all alike: static, under the
# resource prefix "/", written to one output folder (so that qmllint and the QML compiler see
# every module), linted as part of the build, and imported by every executable that links
# bwl_qml_plugins. Adding a module is one call; nothing else needs an edit.

set(BWL_QML_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/qml)
set(QT_QML_OUTPUT_DIRECTORY ${BWL_QML_OUTPUT_DIRECTORY})

# Every module's plugin and the source that imports it; executables link this to load the
# screens (the application, the screen tests).
add_library(bwl_qml_plugins INTERFACE)
# qmllint of every module; the application depends on it, so a screen that names a property,
# type or singleton member that does not exist fails the build.
add_custom_target(bwl_qml_lint)
# Every module built, its files in the output folder: what a module's qmllint reads, its own and
# those it imports.
add_custom_target(bwl_qml_modules)

# bwl_add_qml_module(<target> URI <uri> [QML_FILES <files>...] [SINGLETONS <files>...]
#                    [SOURCES <files>...] [RESOURCES <files>...] [LIBRARIES <targets>...]
#                    [DEPENDENCIES <uris>...])
# SINGLETONS are QML files declared `pragma Singleton`; SOURCES are C++ types the module
# declares with QML_ELEMENT and the like; LIBRARIES are linked publicly; DEPENDENCIES are the QML
# modules that describe the C++ types' Qt base classes to the tools (QtQuick for an item,
# QtQml.Models for QAbstractItemModel, so that qmllint knows a model's rowCount()).
function(bwl_add_qml_module target)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "URI"
                          "QML_FILES;SINGLETONS;SOURCES;RESOURCES;LIBRARIES;DEPENDENCIES")
    if(ARG_SINGLETONS)
        set_source_files_properties(${ARG_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
    endif()
    string(REPLACE "." "_" class_stem "${ARG_URI}")
    string(REPLACE "." "/" uri_path "${ARG_URI}")
    set(extra)
    if(ARG_SOURCES)
        list(APPEND extra SOURCES ${ARG_SOURCES})
    endif()
    if(ARG_RESOURCES)
        list(APPEND extra RESOURCES ${ARG_RESOURCES})
    endif()
    if(ARG_DEPENDENCIES)
        list(APPEND extra DEPENDENCIES ${ARG_DEPENDENCIES})
    endif()
    if(ARG_QML_FILES OR ARG_SINGLETONS)
        list(APPEND extra QML_FILES ${ARG_QML_FILES} ${ARG_SINGLETONS})
    endif()
    qt_add_qml_module(${target} URI ${ARG_URI} VERSION 1.0 STATIC RESOURCE_PREFIX /
                      CLASS_NAME ${class_stem}Plugin
                      OUTPUT_DIRECTORY ${BWL_QML_OUTPUT_DIRECTORY}/${uri_path}
                      ${extra})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${target} PUBLIC Qt6::Qml Qt6::Quick ${ARG_LIBRARIES})
    # The QML compiler's and the type registrar's generated code is not ours to fix: its
    # warnings stay out of the build. The module's own C++ sources keep every warning.
    get_target_property(generated ${target} SOURCES)
    foreach(source IN LISTS generated)
        if(source MATCHES "${CMAKE_CURRENT_BINARY_DIR}|/\\.rcc/|qmlcache|_qmltyperegistrations")
            set_source_files_properties(${source} TARGET_DIRECTORY ${target}
                                        PROPERTIES COMPILE_OPTIONS -w)
        endif()
    endforeach()
    target_compile_options(${target}plugin PRIVATE -w)

    set(import_source ${CMAKE_CURRENT_BINARY_DIR}/${target}_import.cpp)
    file(CONFIGURE OUTPUT ${import_source} CONTENT
         "#include <QtQml/qqmlextensionplugin.h>\nQ_IMPORT_QML_PLUGIN(${class_stem}Plugin)\n")
    target_sources(bwl_qml_plugins INTERFACE ${import_source})
    target_link_libraries(bwl_qml_plugins INTERFACE ${target}plugin)
    add_dependencies(bwl_qml_modules ${target} ${target}plugin)
    if(ARG_QML_FILES OR ARG_SINGLETONS)
        add_dependencies(${target}_qmllint bwl_qml_modules)
        add_dependencies(bwl_qml_lint ${target}_qmllint)
    endif()
endfunction()

# bwl_add_cpp_singleton(<Type> [SOURCES <files>...] [LIBRARIES <targets>...]
#                       [DEPENDENCIES <uris>...])
# A core object that the screens reach as the QML singleton "cpp.<Type>": the module
# cpp.<Type>, built from <Type>.cpp and <Type>.h in the calling folder (the class declares
# QML_ELEMENT and QML_SINGLETON and derives from QmlSingleton, whose create() hands out the
# instance the registry built). The library target is cpp_<Type>.
function(bwl_add_cpp_singleton type)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "SOURCES;LIBRARIES;DEPENDENCIES")
    bwl_add_qml_module(cpp_${type} URI cpp.${type}
                       SOURCES ${type}.cpp ${type}.h ${ARG_SOURCES}
                       LIBRARIES bwl_qml_singleton ${ARG_LIBRARIES}
                       DEPENDENCIES ${ARG_DEPENDENCIES})
endfunction()

# The base of every "cpp." singleton (header only).
add_library(bwl_qml_singleton INTERFACE)
target_include_directories(bwl_qml_singleton INTERFACE ${PROJECT_SOURCE_DIR})
target_link_libraries(bwl_qml_singleton INTERFACE Qt6::Qml)
