# Project-wide warning flags; BWL_WERROR (on in the CI presets) turns them into errors.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                    -Wnon-virtual-dtor -Woverloaded-virtual)
if(BWL_WERROR)
    add_compile_options(-Werror)
endif()

# Log lines and assertion texts name a source file by its path below the source root.
add_compile_definitions(HALYARD_SOURCE_ROOT="${CMAKE_SOURCE_DIR}/")

# Qt's macros (Q_GLOBAL_STATIC in the code its QML tools generate) leave a variadic argument
# empty, which clang's -Wpedantic reports; gcc does not.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    add_compile_options(-Wno-gnu-zero-variadic-macro-arguments)
endif()
