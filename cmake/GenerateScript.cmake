# generate_script(FILE TEXT): writes an executable shell script with the values of its generator expressions.
function(generate_script file text)
    # file(GENERATE) copies the permissions of its input.
    file(WRITE "${file}.in" "${text}")
    execute_process(COMMAND chmod +x "${file}.in" RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${file}.in could not be made executable: ${result}")
    endif()
    file(GENERATE OUTPUT "${file}" INPUT "${file}.in")
endfunction()
