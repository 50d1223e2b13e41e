# CPack runs this between installing and packing. It removes the compiler's name and version from binaries, and debug
# information from static libraries, which CPack does not strip.

# strip(FILE OPTION...)
function(strip file)
    execute_process(COMMAND "${CPACK_ZELTACONNECT_STRIP}" ${ARGN} "${file}" RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${file} could not be stripped: ${result}")
    endif()
endfunction()

file(GLOB_RECURSE files LIST_DIRECTORIES false "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*")
foreach(file IN LISTS files)
    file(READ "${file}" magic LIMIT 8 HEX)
    if(magic MATCHES "^7f454c46")
        strip("${file}" --remove-section=.comment --remove-section=.note --strip-unneeded)
    elseif(magic STREQUAL "213c617263683e0a")
        strip("${file}" --enable-deterministic-archives --remove-section=.comment --strip-debug)
    endif()
endforeach()
