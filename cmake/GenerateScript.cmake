# generate_script(FILE TEXT): writes a shell script that can be run, once the generator expressions in it are known.
function(generate_script file text)
    # A generated file gets the permissions of the file that it is made from.
    file(WRITE "${file}.in" "${text}")
    execute_process(COMMAND chmod +x "${file}.in" RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${file}.in could not be made executable: ${result}")
    endif()
    file(GENERATE OUTPUT "${file}" INPUT "${file}.in")
endfunction()
