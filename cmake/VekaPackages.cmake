if(WIN32)
    # One zip with all that a machine needs, the compiler's runtime libraries too.
    install(FILES ${VEKA_RUNTIME_FILES} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/copyright DESTINATION . COMPONENT runtime)
    set(runtime_licence /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright)
    if(EXISTS ${runtime_licence})
        install(FILES ${runtime_licence} DESTINATION . RENAME copyright-of-the-runtime-libraries COMPONENT runtime)
    endif()
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION . COMPONENT runtime FILES_MATCHING PATTERN *.veka)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
    set(CPACK_PACKAGE_FILE_NAME VEKAsciiDLL-${PROJECT_VERSION}-windows-x86_64)
    set(CPACK_STRIP_FILES ON)
    include(CPack)
    return()
endif()

# Debian packages by `cpack`, one for each component of the installation; scripts/packages makes and tests them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "VEKAsciiDLL developers <developers@vekasciidll.invalid>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_COMPONENTS_ALL runtime development host)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "reader of VEK ASCII part data files")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/bin)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)

# One package: its component, name, section, what it needs besides what the linker finds, and a text about it.
macro(veka_package component name section depends description)
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${depends}")
    set(CPACK_COMPONENT_${upper}_DESCRIPTION "${description}")
    # What every package brings along for the person who meets it.
    install(FILES ${PROJECT_SOURCE_DIR}/cmake/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
            COMPONENT ${component})
    install(FILES ${PROJECT_BINARY_DIR}/changelog.Debian.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
            COMPONENT ${component})
endmacro()

file(WRITE ${PROJECT_BINARY_DIR}/changelog.Debian
     "vekasciidll (${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) stable; urgency=medium\n\n"
     "  * Release ${PROJECT_VERSION}; CHANGELOG.md says what is new.\n\n"
     " -- ${CPACK_PACKAGE_CONTACT}  Sat, 21 Nov 2026 12:00:00 +0000\n")
execute_process(COMMAND gzip -9nkf ${PROJECT_BINARY_DIR}/changelog.Debian)
execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/docs/veka-host.1 OUTPUT_FILE ${PROJECT_BINARY_DIR}/veka-host.1.gz)
install(FILES ${PROJECT_BINARY_DIR}/veka-host.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT host)

set(exactly "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
veka_package(runtime libvekasciidll1 libs ""
             "Imports one electronic part from a VEK ASCII part data file into a\nmodel of records.")
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
veka_package(development libvekasciidll-dev libdevel "libvekasciidll1 ${exactly}"
             "Headers, the static library, the CMake package and the pkg-config file.")
veka_package(host veka-host electronics "libvekasciidll1 (>= ${PROJECT_VERSION})"
             "Imports, prints, stores and shows parts: in a window, on a terminal or\nunattended.")
if(TARGET VEKAsciiDrawing)
    list(APPEND CPACK_COMPONENTS_ALL drawing)
    veka_package(drawing libvekasciidll-drawing-dev libdevel "libvekasciidll-dev ${exactly}"
                 "Draws footprints, padstacks, symbols and packages, and writes the drawings\nas SVG files.")
endif()
if(TARGET VEKAsciiKiCad)
    list(APPEND CPACK_COMPONENTS_ALL kicad)
    veka_package(kicad libvekasciidll-kicad-dev libdevel "libvekasciidll-drawing-dev ${exactly}"
                 "Writes parts as symbols and footprints of KiCad.")
endif()
if(TARGET VEKAsciiQt)
    list(APPEND CPACK_COMPONENTS_ALL qt)
    veka_package(qt libvekasciidll-qt-dev libdevel "libvekasciidll-dev ${exactly}, qt6-base-dev"
                 "The import dialog, its messages and pickers as Qt windows, for programs\nthat link the library.")
endif()
if(TARGET VEKAsciiSolids)
    list(APPEND CPACK_COMPONENTS_ALL solids)
    veka_package(solids libvekasciidll-solids-dev libdevel
                 "libvekasciidll-dev ${exactly}, libocct-data-exchange-dev, libocct-ocaf-dev, libocct-visualization-dev"
                 "Makes solids of bodies and leads, and STEP and glTF files of them, by\nOpenCASCADE.")
endif()
if(TARGET veka_python)
    list(APPEND CPACK_COMPONENTS_ALL python)
    # The module is built for one release of Python.
    execute_process(COMMAND ${VEKA_PYTHON_PROGRAM} -c
                            "import sys; major, minor = sys.version_info[:2]; print(f'python3 (>= {major}.{minor}), python3 (<< {major}.{minor + 1})')"
                    OUTPUT_VARIABLE python_release OUTPUT_STRIP_TRAILING_WHITESPACE)
    veka_package(python python3-veka python "libvekasciidll1 (>= ${PROJECT_VERSION}), ${python_release}"
                 "Reads parts in Python, with every record and field, and gives them as\ndictionaries.")
endif()
include(CPack)
