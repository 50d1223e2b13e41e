# ZELTACONNECT_QML_INSTALL_DIR: folder of QML modules on the target machine.

if(NOT DEFINED ZELTACONNECT_QML_INSTALL_DIR)
    if(CMAKE_CROSSCOMPILING)
        # The board's qmake does not run here, so the folder is that of the board's Qt Quick module.
        find_path(boardQmlDir QtQuick.2/qmldir
            PATHS "/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/qt5/qml" /usr/lib/qt5/qml /usr/lib/qml /usr/qml)
        mark_as_advanced(boardQmlDir)
        if(boardQmlDir)
            string(REPLACE "${CMAKE_SYSROOT}" "" qtQmlDir "${boardQmlDir}")
        else()
            set(qtQmlDir /usr/lib/qml)
        endif()
    else()
        get_target_property(qmake Qt5::qmake IMPORTED_LOCATION)
        execute_process(COMMAND "${qmake}" -query QT_INSTALL_QML
            OUTPUT_VARIABLE qtQmlDir OUTPUT_STRIP_TRAILING_WHITESPACE)
    endif()
    set(ZELTACONNECT_QML_INSTALL_DIR "${qtQmlDir}" CACHE PATH "Where the Qt in use looks for QML modules")
endif()
