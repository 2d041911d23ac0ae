# Windows: an installation is a folder that runs on a machine without Qt or a compiler. Qt's
# deployment script (windeployqt underneath) copies the Qt libraries, the platform and image
# plugins and the QML modules the screens import beside the executables and writes qt.conf;
# the other libraries the executables load (log4cxx and what it needs, minizip, zlib, the
# compiler's runtime) are found by CMake in the folders of the tool chain. Built as described in
# docs/packaging.md; included from cmake/Install.cmake.
install(TARGETS brackwater-link brackwater-cli
        RUNTIME_DEPENDENCY_SET bwl_runtime_libraries
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# Qt's libraries are windeployqt's; Windows' own libraries stay where they are. The search
# folders go into the generated install script, so in CMake's form (no backslashes).
get_filename_component(bwl_compiler_bin ${CMAKE_CXX_COMPILER} DIRECTORY)
file(TO_CMAKE_PATH "$ENV{PATH}" bwl_search_path)
install(RUNTIME_DEPENDENCY_SET bwl_runtime_libraries
        PRE_EXCLUDE_REGEXES "^api-ms-" "^ext-ms-" "^[Qq]t6"
        POST_EXCLUDE_REGEXES "[Ss]ystem32" "[Ww]indows"
        DIRECTORIES ${bwl_compiler_bin} ${bwl_search_path}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# Qt 6.5 renamed the argument that receives the script's path.
if(Qt6_VERSION VERSION_GREATER_EQUAL 6.5)
    qt_generate_deploy_qml_app_script(TARGET brackwater-link OUTPUT_SCRIPT bwl_deploy_script)
else()
    qt_generate_deploy_qml_app_script(TARGET brackwater-link FILENAME_VARIABLE bwl_deploy_script)
endif()
install(SCRIPT ${bwl_deploy_script})

install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/docs/user-guide.md
              ${PROJECT_SOURCE_DIR}/docs/brackwater-link.md
              ${PROJECT_SOURCE_DIR}/docs/brackwater-cli.md
        DESTINATION ${BWL_DOC_DIR})
