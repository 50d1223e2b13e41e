# A cross build needs qmake, moc and rcc that run on this machine, while the Qt it finds is the board's and brings the
# board's own programs. Qt's configuration files leave targets alone that are already there, so these come first.
#
# moc may be newer than the board's Qt as long as both write and read the same revision of moc's output, which all
# of Qt 5.12 to 5.15 do; a mismatch stops the build with a clear message from Qt's headers. What a newer rcc writes,
# which only the demo needs, may ask a linker for functions that an older Qt has not; an SDK brings its own.

if(NOT ZELTACONNECT_HOST_QT_BIN)
    set(hostQtBin "$ENV{OE_QMAKE_PATH_HOST_BINS}")
    if(NOT hostQtBin)
        find_program(hostQmake NAMES qmake-qt5 qmake)
        mark_as_advanced(hostQmake)
        if(hostQmake)
            execute_process(COMMAND "${hostQmake}" -query QT_HOST_BINS
                OUTPUT_VARIABLE hostQtBin OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
        endif()
    endif()
    set(ZELTACONNECT_HOST_QT_BIN "${hostQtBin}" CACHE PATH "This machine's moc and rcc" FORCE)
endif()

foreach(tool IN ITEMS qmake moc rcc)
    if(NOT EXISTS "${ZELTACONNECT_HOST_QT_BIN}/${tool}")
        message(FATAL_ERROR "No ${tool} in '${ZELTACONNECT_HOST_QT_BIN}': set ZELTACONNECT_HOST_QT_BIN to the "
            "folder of this machine's Qt 5 tools")
    endif()
    add_executable(Qt5::${tool} IMPORTED)
    set_target_properties(Qt5::${tool} PROPERTIES IMPORTED_LOCATION "${ZELTACONNECT_HOST_QT_BIN}/${tool}")
endforeach()
