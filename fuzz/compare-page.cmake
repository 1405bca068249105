# Fails where the output of PROGRAM is not the text of PAGE.
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
file(READ ${PAGE} committed)
if(NOT printed STREQUAL committed)
    message(FATAL_ERROR "${PAGE} is not what the parser's rows say. Run: build/dev/bin/veka-keywords >docs/keywords.md")
endif()
