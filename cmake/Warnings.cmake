# The warnings that the project's own code is compiled with. They are no business of those who use the library, so they
# are set for a directory tree and never reach a target's interface; only the project's presets make them errors.

option(QEN_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)

add_compile_options(
    -Wall
    -Wextra
    -Wpedantic
    -Wshadow
    -Wconversion
    -Wsign-conversion
    -Wcast-align
    -Wcast-qual
    -Wimplicit-fallthrough
    -Wold-style-cast
    -Woverloaded-virtual
    -Wunused)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wduplicated-cond -Wduplicated-branches -Wlogical-op)
    if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        add_compile_options(-Wno-restrict)    # GCC 12 sees overlap in "text" + std::to_string(n), GCC bug 105651
    endif()
endif()

if(QEN_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()
