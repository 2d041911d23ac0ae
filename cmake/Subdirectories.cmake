# add_existing_subdirectories(dir...): adds each listed folder that has a CMakeLists.txt, so that
# folders can arrive one at a time without editing their parent.
function(add_existing_subdirectories)
    foreach(dir IN LISTS ARGN)
        if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/CMakeLists.txt)
            add_subdirectory(${dir})
        endif()
    endforeach()
endfunction()
