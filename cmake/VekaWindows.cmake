# The compiler's runtime libraries, which programs by mingw-w64 need beside them: for the build, and for the zip.
if(NOT MINGW)
    return()
endif()
foreach(name libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}.dll
                    OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    file(REAL_PATH "${file}" file)
    configure_file("${file}" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}.dll" COPYONLY)
    # Stripped, since the compiler's own hold some 20 MB of debug information.
    execute_process(COMMAND ${CMAKE_STRIP} -o ${PROJECT_BINARY_DIR}/${name}.dll "${file}")
    list(APPEND VEKA_RUNTIME_FILES ${PROJECT_BINARY_DIR}/${name}.dll)
endforeach()
