# A cross build needs qmake, moc and rcc that run on this machine, but finds those of the board's Qt. Qt's configuration
# files keep existing targets, so the targets of this machine are created first.
#
# moc may be newer than the board's Qt if both use the same revision of moc's output, as all of Qt 5.12 to 5.15 do. Qt's
# headers report a mismatch. Output of a newer rcc, which only the demo uses, may need functions that an older Qt lacks; an
# SDK contains its own rcc.

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
