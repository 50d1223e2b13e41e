# cmake -DPROGRAM=... -DCASE=... -DFINDING=... -P judgerace.cmake
#
# Runs one case of the race program under the thread sanitizer, with the options of the tests. With FINDING, the
# sanitizer must report this finding in a frame of the program, and the program must fail. Without FINDING, it must
# report nothing.

execute_process(COMMAND "${PROGRAM}" "${CASE}"
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE report)
message("${report}")

if(NOT output MATCHES "done")
    message(FATAL_ERROR "${CASE} did not finish: ${status}")
endif()
if(FINDING)
    if(status EQUAL 0 OR NOT report MATCHES "ThreadSanitizer: ${FINDING}" OR NOT report MATCHES "raceprogram\\.cpp")
        message(FATAL_ERROR "${CASE}: the sanitizer did not report '${FINDING}', status ${status}")
    endif()
elseif(NOT status EQUAL 0 OR report MATCHES "ThreadSanitizer")
    message(FATAL_ERROR "${CASE}: unexpected report of the sanitizer, status ${status}")
endif()
