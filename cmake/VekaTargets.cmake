# How every target of the project is built.

# Warnings, sanitizers and visibility for our own code.
function(veka_compile_options target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8 /EHsc /Zc:__cplusplus)
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
                                                 -ffp-contract=off -fno-semantic-interposition -Werror)
    endif()
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
    if(WIN32)
        # Unoptimised, since tests take a compiler long and g++ 12 warns of its own headers in them.
        target_compile_options(${target} PRIVATE -O0)
        target_link_options(${target} PUBLIC -static)
    endif()
endfunction()

# One folder of the project as a target. Its headers are seen as "folder/Header.h" by those targets alone that
# name it among what they depend on, so that an include against the grain does not compile.
#   veka_folder(<target> <folder below the project> [<target it may include from>...])
function(veka_folder target folder)
    get_filename_component(name ${folder} NAME)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp
         ${PROJECT_SOURCE_DIR}/${folder}/*.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    # A folder in it with a list file of its own is a target of its own.
    file(GLOB others ${PROJECT_SOURCE_DIR}/${folder}/*/CMakeLists.txt)
    foreach(other IN LISTS others)
        cmake_path(GET other PARENT_PATH other)
        list(FILTER sources EXCLUDE REGEX "^${other}/")
    endforeach()
    set(include ${PROJECT_BINARY_DIR}/include/${target})
    file(MAKE_DIRECTORY ${include})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${include}/${name} SYMBOLIC)
    add_library(${target} OBJECT ${sources})
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX)  # a folder may hold headers alone
    target_include_directories(${target} PUBLIC ${include})
    target_link_libraries(${target} PUBLIC ${ARGN})
    veka_compile_options(${target})
    veka_check_headers(${target} ${sources})
endfunction()

# Compiles every header on its own. One compiler is enough for that.
function(veka_check_headers target)
    if(NOT VEKA_TESTS OR NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        return()
    endif()
    set(units)
    foreach(header IN LISTS ARGN)
        if(header MATCHES "\\.h$")
            file(RELATIVE_PATH path ${PROJECT_SOURCE_DIR} ${header})
            set(unit ${PROJECT_BINARY_DIR}/headers/${path}.cpp)
            file(CONFIGURE OUTPUT ${unit} CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
            list(APPEND units ${unit})
        endif()
    endforeach()
    if(units)
        add_library(${target}_headers OBJECT ${units})
        target_link_libraries(${target}_headers PRIVATE ${target})
        veka_compile_options(${target}_headers)
    endif()
endfunction()
