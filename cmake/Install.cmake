# Where an installation puts the programs and everything a desktop and a reader expect of them:
# the three executables, and on Linux the desktop entry, the icon theme's icons, the AppStream
# metadata, the manual pages and the documentation. The translations and the screens are
# resources inside the executables. Included once every target exists.
include(GNUInstallDirs)

set(BWL_PACKAGING_DIR ${PROJECT_SOURCE_DIR}/packaging)
set(BWL_DOC_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/brackwater-link)

if(WIN32)
    include(${CMAKE_CURRENT_LIST_DIR}/WindowsDeploy.cmake)
    return()
endif()

# The simulator opens pseudo-terminals: it is built and shipped on Linux only.
install(TARGETS brackwater-link brackwater-cli pump-simulator
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

install(FILES ${BWL_PACKAGING_DIR}/linux/brackwater-link.desktop
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/applications)
install(FILES ${BWL_PACKAGING_DIR}/linux/com.brackwater.link.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/metainfo)
install(DIRECTORY ${BWL_PACKAGING_DIR}/icons/hicolor
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/icons)
install(FILES ${BWL_PACKAGING_DIR}/icons/brackwater-link.svg
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/icons/hicolor/scalable/apps)

# Manual pages and the change log are installed compressed, as Debian's policy asks; -n leaves
# the name and time out of the gzip header so that every build gives the same bytes.
find_program(BWL_GZIP gzip REQUIRED)
set(bwl_compressed_dir ${PROJECT_BINARY_DIR}/packaging)
set(bwl_compressed)
foreach(source man/brackwater-link.1 man/brackwater-cli.1 man/pump-simulator.1
               debian/changelog)
    get_filename_component(name ${source} NAME)
    set(output ${bwl_compressed_dir}/${name}.gz)
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -E copy ${BWL_PACKAGING_DIR}/${source} ${bwl_compressed_dir}/${name}
        COMMAND ${BWL_GZIP} -9nf ${bwl_compressed_dir}/${name}
        DEPENDS ${BWL_PACKAGING_DIR}/${source}
        COMMENT "Compressing ${name}"
        VERBATIM)
    list(APPEND bwl_compressed ${output})
endforeach()
add_custom_target(bwl_compressed_docs ALL DEPENDS ${bwl_compressed})
list(FILTER bwl_compressed INCLUDE REGEX "\\.1\\.gz$")
install(FILES ${bwl_compressed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${bwl_compressed_dir}/changelog.gz ${BWL_PACKAGING_DIR}/debian/copyright
        DESTINATION ${BWL_DOC_DIR})

set(bwl_docs ${PROJECT_SOURCE_DIR}/docs)
install(FILES
            ${PROJECT_SOURCE_DIR}/README.md
            ${bwl_docs}/user-guide.md
            ${bwl_docs}/brackwater-link.md
            ${bwl_docs}/brackwater-cli.md
            ${bwl_docs}/pump-simulator.md
            ${bwl_docs}/firmware-bundles.md
            ${bwl_docs}/session-recording.md
            ${bwl_docs}/reliability.md
            ${bwl_docs}/log4qt.properties.example
        DESTINATION ${BWL_DOC_DIR})
install(DIRECTORY ${bwl_docs}/samples DESTINATION ${BWL_DOC_DIR})
# The demo bundle, for a firmware update against the pump simulator.
install(FILES ${bwl_docs}/firmware/demo-bundle.zip DESTINATION ${BWL_DOC_DIR}/firmware)
