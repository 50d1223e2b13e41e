# Run by CPack between installing and packing: the compiler's name and version are of no use on the board.

file(GLOB_RECURSE files LIST_DIRECTORIES false "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*")
foreach(file IN LISTS files)
    file(READ "${file}" magic LIMIT 4 HEX)
    if(magic STREQUAL "7f454c46")
        execute_process(COMMAND "${CPACK_ZELTACONNECT_STRIP}" --remove-section=.comment --remove-section=.note
            --strip-unneeded "${file}" RESULT_VARIABLE result)
        if(NOT result EQUAL 0)
            message(FATAL_ERROR "${file} could not be stripped: ${result}")
        endif()
    endif()
endforeach()
