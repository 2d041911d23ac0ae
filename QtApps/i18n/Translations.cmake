# bwl_add_translations(target): compiles the four translation catalogues (21 locales each) into
# the target's resources under :/i18n/translations, and adds their sources to the
# update_translations target (lupdate).
set(BWL_LOCALES es_ES pt_BR de_DE sv_SE bg_BG es_419 en_GB ro pt pl zh da cs hu fr fi ja it ko nl
    nb)
set(BWL_I18N_DIR ${CMAKE_CURRENT_LIST_DIR}/translations)
set(BWL_QTAPPS_DIR ${CMAKE_CURRENT_LIST_DIR}/..)

function(bwl_add_translations target)
    file(GLOB_RECURSE appBwUI_sources CONFIGURE_DEPENDS
         ${BWL_QTAPPS_DIR}/contents/*.qml ${BWL_QTAPPS_DIR}/BwUI/*.qml
         ${BWL_QTAPPS_DIR}/BwLib/*.qml ${BWL_QTAPPS_DIR}/BwControls/*.qml
         ${BWL_QTAPPS_DIR}/BwResources/*.qml)
    file(GLOB_RECURSE Controller_sources CONFIGURE_DEPENDS
         ${BWL_QTAPPS_DIR}/Common/Controllers/*.cpp ${BWL_QTAPPS_DIR}/Common/Controllers/*.h)
    file(GLOB Model_sources CONFIGURE_DEPENDS
         ${BWL_QTAPPS_DIR}/Common/Model/*.cpp ${BWL_QTAPPS_DIR}/Common/Model/*.h
         ${BWL_QTAPPS_DIR}/Common/Model/PumpSettings/*.cpp
         ${BWL_QTAPPS_DIR}/Common/Model/PumpSettings/*.h
         ${BWL_QTAPPS_DIR}/Common/Models/*.cpp ${BWL_QTAPPS_DIR}/Common/Models/*.h)
    file(GLOB_RECURSE Model.FirmwareUpdate_sources CONFIGURE_DEPENDS
         ${BWL_QTAPPS_DIR}/Common/Model/FirmwareUpdate/*.cpp
         ${BWL_QTAPPS_DIR}/Common/Model/FirmwareUpdate/*.h)

    set(all_qm)
    foreach(catalogue appBwUI Controller Model Model.FirmwareUpdate)
        string(REPLACE "." "_" catalogue_target "bwl_tr_${catalogue}")
        set(ts_files)
        foreach(locale IN LISTS BWL_LOCALES)
            list(APPEND ts_files ${BWL_I18N_DIR}/${catalogue}_${locale}.ts)
        endforeach()
        add_custom_target(${catalogue_target})
        if(${catalogue}_sources)
            qt_add_lupdate(${catalogue_target} TS_FILES ${ts_files} SOURCES ${${catalogue}_sources})
        endif()
        qt_add_lrelease(${catalogue_target} TS_FILES ${ts_files} QM_FILES_OUTPUT_VARIABLE qm_files
                        OPTIONS -silent)
        add_dependencies(${target} ${catalogue_target})
        list(APPEND all_qm ${qm_files})
    endforeach()
    qt_add_resources(${target} "translations" PREFIX /i18n/translations
                     BASE ${CMAKE_CURRENT_BINARY_DIR} FILES ${all_qm})
endfunction()
