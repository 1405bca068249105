# How every target of the project is built.

# Where includes are looked up: "model/Record.h", "qt/Text.h", "geometry/SolidFiles.h", "host/Host.h". Which room may
# include from which is checked by scripts/check-includes.
add_library(veka_roots INTERFACE)
target_include_directories(veka_roots INTERFACE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/ui
                                                ${PROJECT_SOURCE_DIR}/solids ${PROJECT_SOURCE_DIR})

# A compiler cache and a fast linker are used where they are installed. Neither is needed. What is shipped is linked by the
# system's own linker.
if(PROJECT_IS_TOP_LEVEL)
    find_program(VEKA_LLD ld.lld)
endif()
if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CROSSCOMPILING)
    find_program(VEKA_CCACHE ccache)
    if(VEKA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
        # Without these settings the cache does not serve files that use a precompiled header.
        set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
            CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${VEKA_CCACHE})
    endif()
    if(VEKA_LLD AND NOT CMAKE_BUILD_TYPE STREQUAL Release)
        add_link_options(-fuse-ld=lld)
    endif()
endif()

# Hardening of what is shipped: an overrun ends the program instead of leading it elsewhere. What the compiler does not
# know is left out. scripts/check-hardening reads the binaries and says what they lack.
set(VEKA_HARDENING_COMPILE "")
set(VEKA_HARDENING_LINK "")
if(WIN32)
    if(MINGW)
        set(VEKA_HARDENING_LINK -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va)
    endif()
elseif(NOT MSVC AND NOT VEKA_SANITIZE)
    include(CheckCXXCompilerFlag)
    include(CheckCXXSourceCompiles)
    foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
        string(MAKE_C_IDENTIFIER "VEKA_HAS${flag}" known)
        check_cxx_compiler_flag("-Werror ${flag}" ${known})
        if(${known})
            list(APPEND VEKA_HARDENING_COMPILE ${flag})
        endif()
    endforeach()
    # An older C library warns of level 3, and takes level 2 only.
    set(CMAKE_REQUIRED_FLAGS "-Werror -O2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3")
    check_cxx_source_compiles("#include <cstdlib>\nint main() {}" VEKA_HAS_FORTIFY_3)
    unset(CMAKE_REQUIRED_FLAGS)
    list(APPEND VEKA_HARDENING_COMPILE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=$<IF:$<BOOL:${VEKA_HAS_FORTIFY_3}>,3,2>)
    set(VEKA_HARDENING_LINK -Wl,-z,relro -Wl,-z,now $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>)
endif()
function(veka_harden target)
    if(CMAKE_BUILD_TYPE STREQUAL Release)
        target_compile_options(${target} PRIVATE ${VEKA_HARDENING_COMPILE})
        target_link_options(${target} PRIVATE ${VEKA_HARDENING_LINK})
    endif()
endfunction()

# Warnings, sanitizers, hardening and visibility for our own code.
function(veka_compile_options target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8 /EHsc /Zc:__cplusplus)
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
                                                 -ffp-contract=off -fno-semantic-interposition -Werror)
    endif()
    veka_harden(${target})
    set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
                                               POSITION_INDEPENDENT_CODE ON)
    if(WIN32)
        # The whole of the system's interface, in its Unicode form, and without macros that look like functions.
        target_compile_definitions(${target} PRIVATE _WIN32_WINNT=0x0A00 UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
    endif()
    if(VEKA_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${VEKA_SANITIZE} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
        target_link_options(${target} PUBLIC -fsanitize=${VEKA_SANITIZE})
    endif()
endfunction()

# A program or library of the tests: as our own code, and on Windows a program that needs no other file beside it.
function(veka_test_options target)
    veka_compile_options(${target})
    if(CMAKE_BUILD_TYPE STREQUAL Release)
        # Not optimised: a compiler takes minutes to optimise tests, and g++ 12 then warns of its own headers. Without
        # optimisation _FORTIFY_SOURCE is only a warning.
        target_compile_options(${target} PRIVATE -O0 -U_FORTIFY_SOURCE)
    endif()
    if(WIN32)
        target_link_options(${target} PUBLIC -static)
    endif()
    if(VEKA_LLD AND NOT MINGW)
        target_link_options(${target} PUBLIC -fuse-ld=lld)
    endif()
endfunction()

# A program of tests that is linked by lld on Windows, too. g++ for Windows knows its linker by path, and takes another only
# from a file. Its own linker takes half a minute for a program of tests.
function(veka_link_fast target)
    if(VEKA_LLD AND MINGW)
        file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/lld.specs CONTENT "*linker:\n${VEKA_LLD}\n")
        target_link_options(${target} PRIVATE -specs=${PROJECT_BINARY_DIR}/lld.specs -fno-use-linker-plugin)
    endif()
endfunction()

# One room of the project as a static library: all sources below a folder, except main programs and folders that have
# a CMakeLists.txt of their own. A program that links a room links the rooms named after the folder, too.
#   veka_room(<target> <folder below the project> [<room or library that it needs>...])
function(veka_room target folder)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp
         ${PROJECT_SOURCE_DIR}/${folder}/*.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    file(GLOB others ${PROJECT_SOURCE_DIR}/${folder}/*/CMakeLists.txt)
    foreach(other IN LISTS others)
        cmake_path(GET other PARENT_PATH other)
        list(FILTER sources EXCLUDE REGEX "^${other}/")
    endforeach()
    add_library(${target} STATIC ${sources})
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX)  # a room may hold headers only
    target_link_libraries(${target} PUBLIC $<BUILD_INTERFACE:veka_roots> ${ARGN})
    veka_compile_options(${target})
endfunction()

# A room above the library. It does not link the library: the program that links the room chooses the library's rooms or
# its file. On Windows code for the file differs from code for the rooms, so there a second target, with the ending
# "_importing", is compiled for the file.
#   veka_program_room(<target> <folder below the project> [<room or library that it needs>...])
function(veka_program_room target folder)
    veka_room(${target} ${folder} ${ARGN})
    # The standard library checks its indices here. In the reader and the parser that would cost a check for each value.
    target_compile_definitions(${target} PRIVATE $<$<CONFIG:Release>:_GLIBCXX_ASSERTIONS>)
    if(WIN32)
        target_compile_definitions(${target} PRIVATE VEKA_STATIC)
        set(needed "")
        foreach(room IN LISTS ARGN)
            if(TARGET ${room}_importing)
                set(room ${room}_importing)
            endif()
            list(APPEND needed ${room})
        endforeach()
        veka_room(${target}_importing ${folder} ${needed} VEKAsciiDLL)
    else()
        add_library(${target}_importing ALIAS ${target})
    endif()
endfunction()
