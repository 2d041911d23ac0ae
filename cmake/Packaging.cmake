# CPack: a Debian package on Linux (tools/package.sh), an NSIS installer on Windows
# (docs/packaging.md). Both take what cmake/Install.cmake installs.
set(CPACK_PACKAGE_NAME brackwater-link)
set(CPACK_PACKAGE_VENDOR Brackwater)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Brackwater Link maintainers <link@brackwater.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://brackwater.example/link/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "service tool for peristaltic pump drives")
set(CPACK_PACKAGE_INSTALL_DIRECTORY "Brackwater Link")
set(CPACK_PACKAGE_EXECUTABLES brackwater-link "Brackwater Link")
# The release carries no debugging information, whatever the build type of the tree it comes from.
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)

# Lines of the extended description: Debian's control file wants them short, and " ." for an
# empty line, which CPack writes for an empty line of CPACK_PACKAGE_DESCRIPTION. No double
# quotes or semicolons: CPack's configuration file would split the text at them.
set(CPACK_PACKAGE_DESCRIPTION [=[
Brackwater Link finds a peristaltic pump drive on a USB serial port
(115200 8N1), keeps a protocol session with it, shows its live state, sets
speed, direction and control mode, edits speed ranges, filters and network
settings, reads, clears and exports the event log, handles faults, saves and
loads settings as JSON and updates the firmware from a ZIP bundle.

The package holds the application, brackwater-cli (the same service
operations for scripts, without a window) and pump-simulator (a pump on a
pseudo-terminal, for demonstrations and training).

Serial ports belong to the dialout group: a user may open one only as a
member of it. Add yourself with: sudo usermod -aG dialout $USER
Then log out and in again.]=])

if(WIN32)
    set(CPACK_GENERATOR NSIS)
    set(bwl_icon ${PROJECT_SOURCE_DIR}/QtApps/Common/Instantiation/Brackwater.ico)
    set(CPACK_NSIS_MUI_ICON ${bwl_icon})
    set(CPACK_NSIS_MUI_UNIICON ${bwl_icon})
    set(CPACK_NSIS_INSTALLED_ICON_NAME bin\\\\brackwater-link.exe)
    set(CPACK_NSIS_DISPLAY_NAME "Brackwater Link ${PROJECT_VERSION}")
    set(CPACK_NSIS_PACKAGE_NAME "Brackwater Link")
    set(CPACK_NSIS_URL_INFO_ABOUT ${CPACK_PACKAGE_HOMEPAGE_URL})
    set(CPACK_NSIS_CONTACT ${CPACK_PACKAGE_CONTACT})
    set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
    # brackwater-cli on the PATH, for scripts.
    set(CPACK_NSIS_MODIFY_PATH ON)
    set(CPACK_NSIS_EXECUTABLES_DIRECTORY bin)
    set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY "Brackwater Link")
else()
    set(CPACK_GENERATOR DEB)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
    set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
    set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CPACK_PACKAGE_CONTACT})
    set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${CPACK_PACKAGE_HOMEPAGE_URL})
    set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
    # The shared libraries the executables link come from dpkg-shlibdeps. The QML modules the
    # screens import are loaded at run time and appear in no executable's links: each is named
    # here (each Debian package holds one module and depends on nothing else of QML; Controls
    # needs Templates and Window, QtQml needs its models and WorkerScript, the file dialog needs
    # the folder list model), with the platform plugins that open the window.
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(bwl_run_time_packages
        qml6-module-qtqml
        qml6-module-qtqml-models
        qml6-module-qtqml-workerscript
        qml6-module-qtquick
        qml6-module-qtquick-window
        qml6-module-qtquick-templates
        qml6-module-qtquick-controls
        qml6-module-qtquick-layouts
        qml6-module-qtquick-dialogs
        qml6-module-qtcharts
        qml6-module-qt-labs-folderlistmodel
        qt6-qpa-plugins)
    list(JOIN bwl_run_time_packages ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core")
endif()

include(CPack)
