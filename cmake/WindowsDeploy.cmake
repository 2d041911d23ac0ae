# Windows: an installation is a folder that runs on a machine without Qt or a compiler. Qt's
# deployment script (windeployqt underneath) copies the Qt libraries, the platform and image
# plugins and the QML modules the screens import beside the executables and writes qt.conf;
# the other libraries the executables load (log4cxx and what it needs, minizip, zlib, the
# compiler's runtime) are found by CMake in the folders of the tool chain. Built as described in
# docs/packaging.md; included from cmake/Install.cmake.
install(TARGETS brackwater-link brackwater-cli
        RUNTIME_DEPENDENCY_SET bwl_runtime_libraries
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# Qt's libraries are windeployqt's; Windows' own libraries stay where they are.
get_filename_component(bwl_compiler_bin ${CMAKE_CXX_COMPILER} DIRECTORY)
install(RUNTIME_DEPENDENCY_SET bwl_runtime_libraries
        PRE_EXCLUDE_REGEXES "^api-ms-" "^ext-ms-" "^[Qq]t6"
        POST_EXCLUDE_REGEXES "[Ss]ystem32" "[Ww]indows"
        DIRECTORIES ${bwl_compiler_bin} ${CMAKE_PREFIX_PATH} $ENV{PATH}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

qt_generate_deploy_qml_app_script(TARGET brackwater-link FILENAME_VARIABLE bwl_deploy_script)
install(SCRIPT ${bwl_deploy_script})

install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/docs/user-guide.md
              ${PROJECT_SOURCE_DIR}/docs/brackwater-cli.md
        DESTINATION ${BWL_DOC_DIR})
