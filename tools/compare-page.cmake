# Fails if the output of PROGRAM with ARGUMENT is not the text of PAGE.
execute_process(COMMAND ${PROGRAM} ${ARGUMENT} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
file(READ ${PAGE} committed)
if(NOT printed STREQUAL committed)
    message(FATAL_ERROR "${PAGE} is not what the rows say. Run scripts/renew.")
endif()
