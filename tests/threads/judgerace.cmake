# cmake -DPROGRAM=... -DCASE=... -DFINDING=... -P judgerace.cmake
#
# Runs one case of the race program under the thread sanitizer, with the options and suppressions of the tests. With
# FINDING the sanitizer has to report just that, in a frame of ours, and to fail the program; without, it has to be
# silent.

execute_process(COMMAND "${PROGRAM}" "${CASE}"
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE report)
message("${report}")

if(NOT output MATCHES "done")
    message(FATAL_ERROR "${CASE} did not run to its end: ${status}")
endif()
if(FINDING)
    if(status EQUAL 0 OR NOT report MATCHES "ThreadSanitizer: ${FINDING}" OR NOT report MATCHES "raceprogram\\.cpp")
        message(FATAL_ERROR "${CASE}: '${FINDING}' was expected of the sanitizer, status ${status}")
    endif()
elseif(NOT status EQUAL 0 OR report MATCHES "ThreadSanitizer")
    message(FATAL_ERROR "${CASE}: nothing was expected of the sanitizer, status ${status}")
endif()
