# What `cmake --install` puts where, in components: runtime, development, drawing, kicad, qt, solids, host,
# python.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/VEKAsciiDLL)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/VEKAsciiDLL)

# Installs some headers and every one of the project that they include, and nothing else: what a host can see is what
# it may use.
#   veka_install_headers(<component> <header, as it is included>...)
function(veka_install_headers component)
    set(open ${ARGN})
    get_property(done GLOBAL PROPERTY VEKA_INSTALLED_HEADERS)
    while(open)
        list(POP_FRONT open header)
        if(header IN_LIST done)
            continue()
        endif()
        list(APPEND done ${header})
        foreach(root src ui solids .)
            if(EXISTS ${PROJECT_SOURCE_DIR}/${root}/${header})
                set(path ${PROJECT_SOURCE_DIR}/${root}/${header})
                break()
            endif()
        endforeach()
        cmake_path(GET header PARENT_PATH folder)
        install(FILES ${path} DESTINATION ${header_folder}/${folder} COMPONENT ${component})
        file(STRINGS ${path} includes REGEX "^#include \"")
        list(TRANSFORM includes REPLACE "^#include \"([^\"]*)\".*" "\\1")
        list(APPEND open ${includes})
    endwhile()
    set_property(GLOBAL PROPERTY VEKA_INSTALLED_HEADERS "${done}")
endfunction()

veka_install_headers(development VEKAsciiDLL.h)
install(TARGETS VEKAsciiDLL VEKAsciiDLL_static EXPORT VEKAsciiDLLTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(EXPORT VEKAsciiDLLTargets NAMESPACE VEKAscii:: DESTINATION ${package_folder} COMPONENT development)

# The windows and the solids: a target and a component of the CMake package each.
foreach(part Drawing KiCad Qt Win32 Solids)
    if(TARGET VEKAscii${part})
        string(TOLOWER ${part} component)
        install(TARGETS VEKAscii${part} EXPORT VEKAscii${part}Targets
                ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component})
        install(EXPORT VEKAscii${part}Targets NAMESPACE VEKAscii:: DESTINATION ${package_folder} COMPONENT ${component})
    endif()
endforeach()
if(TARGET VEKAsciiDrawing)
    veka_install_headers(drawing drawing/Drawing.h)
endif()
if(TARGET VEKAsciiKiCad)
    veka_install_headers(kicad export/kicad/KiCad.h)
endif()
if(TARGET VEKAsciiQt)
    veka_install_headers(qt qt/QtUserInterface.h)
endif()
if(TARGET VEKAsciiWin32)
    veka_install_headers(win32 win32/Win32UserInterface.h)
endif()
if(TARGET veka-step-reader)
    install(TARGETS veka-step-reader RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/vekasciidll COMPONENT host)
endif()
if(TARGET VEKAsciiSolids)
    veka_install_headers(solids package/PackageSolids.h leads/Lead.h)
endif()

configure_package_config_file(cmake/VEKAsciiDLLConfig.cmake.in VEKAsciiDLLConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(VEKAsciiDLLConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VEKAsciiDLLConfig.cmake ${PROJECT_BINARY_DIR}/VEKAsciiDLLConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT development)

# From the folder of the .pc file up to the prefix, so that the prefix can be moved.
file(RELATIVE_PATH prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
configure_file(cmake/VEKAsciiDLL.pc.in VEKAsciiDLL.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/VEKAsciiDLL.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# The pages and the examples.
install(FILES README.md SECURITY.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
        FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN *.svg PATTERN *.json)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development FILES_MATCHING PATTERN *.veka)

if(TARGET veka-host)
    file(RELATIVE_PATH lib_from_bin /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
    # Under /usr the system finds the library by itself.
    if(NOT CMAKE_INSTALL_PREFIX STREQUAL /usr)
        set_target_properties(veka-host PROPERTIES INSTALL_RPATH "$ORIGIN/${lib_from_bin}")
    endif()
    install(TARGETS veka-host RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT host)
    if(TARGET veka-host-desktop)
        if(NOT CMAKE_INSTALL_PREFIX STREQUAL /usr)
            set_target_properties(veka-host-desktop PROPERTIES INSTALL_RPATH "$ORIGIN/../../${CMAKE_INSTALL_LIBDIR}")
        endif()
        install(TARGETS veka-host-desktop RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/vekasciidll COMPONENT host)
    endif()
    if(NOT WIN32)
        set(desktop ${PROJECT_SOURCE_DIR}/host/desktop)
        install(FILES ${desktop}/completion.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
                RENAME veka-host COMPONENT host)
        install(FILES ${desktop}/veka-host.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT host)
        if(TARGET VEKAsciiQt)
            install(FILES ${desktop}/veka-host.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT host)
            install(FILES ${desktop}/veka-host.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
                    COMPONENT host)
        endif()
    endif()
endif()

if(TARGET veka_python)
    set(VEKA_PYTHON_FOLDER lib/python3/dist-packages CACHE STRING "Where the module for Python is installed")
    file(RELATIVE_PATH lib_from_module /${VEKA_PYTHON_FOLDER}/veka /${CMAKE_INSTALL_LIBDIR})
    if(NOT CMAKE_INSTALL_PREFIX STREQUAL /usr)
        set_target_properties(${VEKA_PYTHON_MODULES} PROPERTIES INSTALL_RPATH "$ORIGIN/${lib_from_module}")
    endif()
    install(TARGETS ${VEKA_PYTHON_MODULES} LIBRARY DESTINATION ${VEKA_PYTHON_FOLDER}/veka COMPONENT python)
    get_target_property(module_files veka_python VEKA_MODULE_FILES)
    install(FILES ${module_files} DESTINATION ${VEKA_PYTHON_FOLDER}/veka COMPONENT python)
    install(FILES docs/python.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/python3-veka COMPONENT python)
    install(DIRECTORY python/examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/python3-veka COMPONENT python
            FILES_MATCHING PATTERN *.py)
endif()

include(${CMAKE_CURRENT_LIST_DIR}/VekaPackages.cmake)
