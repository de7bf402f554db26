# What all targets share: warnings, sanitizers, the two language levels.
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON) # for clang-tidy and editors
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

if(QT_MAJOR EQUAL 5)
    set(QT_LEAST 5.15)
elseif(QT_MAJOR EQUAL 6)
    set(QT_LEAST 6.4)
else()
    message(FATAL_ERROR "QT_MAJOR is 5 or 6, not \"${QT_MAJOR}\". For Qt 4.8 build the plug-in with qmake.")
endif()

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()

if(RECIPE_SANITIZE)
    list(JOIN RECIPE_SANITIZE "," sanitizers)
    add_compile_options(-fsanitize=${sanitizers} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${sanitizers})
    if("undefined" IN_LIST RECIPE_SANITIZE)
        # The plug-in refers to the runtime's type information only through its headers; -fsanitize=vptr would need
        # it inside the library.
        add_compile_options(-fno-sanitize-recover=undefined -fno-sanitize=vptr)
    endif()
endif()

# The code under test tells a fuzzer which of its ways have been walked.
if(RECIPE_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "The fuzzers need clang: cmake --preset fuzz")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link)
    add_link_options(-fsanitize=fuzzer-no-link)
endif()

# Qt's own headers are system headers and warn nobody.
function(recipe_target target standard)
    if(QT_MAJOR EQUAL 6 AND standard LESS 17) # what Qt 6's headers ask for
        set(standard 17)
    endif()
    set_target_properties(${target} PROPERTIES CXX_STANDARD ${standard})
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow $<$<BOOL:${RECIPE_WERROR}>:-Werror>)
    # Qt 6 counts in qsizetype, Qt 4 and 5 in int: the same sources are held to this one with Qt 5.
    if(QT_MAJOR EQUAL 5)
        target_compile_options(${target} PRIVATE -Wconversion)
    endif()
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
endfunction()

# What ships gives nothing away: no writable relocations, guarded stacks, checked buffers, no executable stack.
function(recipe_harden target)
    target_compile_options(${target} PRIVATE -fstack-protector-strong)
    target_link_options(${target} PRIVATE -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
    if(NOT RECIPE_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
        target_compile_definitions(${target} PRIVATE _FORTIFY_SOURCE=2)
    endif()
endfunction()
