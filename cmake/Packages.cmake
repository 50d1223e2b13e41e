# Debian packages: the module, the tools for people who build a screen or service a drum module, and the simulated
# engine's library for tests in C++ (simulator/Install.cmake has its files).

set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(FILES "${PROJECT_SOURCE_DIR}/simulator/scenarios/echo.scenario"
    "${PROJECT_SOURCE_DIR}/simulator/scenarios/frontpanel.scenario"
    "${PROJECT_SOURCE_DIR}/simulator/scenarios/verse.scenario"
    DESTINATION share/zeltaconnect-tools/scenarios COMPONENT tools)
install(TARGETS zelta-demo zelta-engine-sim zelta-panel zelta-send RUNTIME DESTINATION bin COMPONENT tools)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/zelta-demo.desktop" DESTINATION share/applications COMPONENT tools)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/zelta-demo.svg" DESTINATION share/icons/hicolor/scalable/apps
    COMPONENT tools)
# The programs put this folder first in their search path.
install(PROGRAMS "${PROJECT_SOURCE_DIR}/tools/bin/ping" DESTINATION libexec/zeltaconnect-tools COMPONENT tools)
if(TARGET zelta-writeparameters)
    install(DIRECTORY "${PROJECT_BINARY_DIR}/wireshark/"
        DESTINATION "lib/${CMAKE_LIBRARY_ARCHITECTURE}/wireshark/plugins/zeltaconnect" COMPONENT tools)
else()
    message(WARNING "The packages of this build have no Wireshark dissector: a cross build without an emulator "
        "cannot make its table of parameters")
endif()

set(packageVersion "${PROJECT_VERSION}-1")
set(ZELTACONNECT_PACKAGER "ZeltaConnect maintainers <maintainers@zeltaconnect.example>" CACHE STRING
    "Name and address of the maintainer of the packages")
string(TIMESTAMP packageYear "%Y" UTC)
string(TIMESTAMP packageDate "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(packageFiles "${PROJECT_BINARY_DIR}/packaging")

# install_compressed(FILE DESTINATION COMPONENT): stores no name and time in the archive, so packages that are built
# with the same SOURCE_DATE_EPOCH are identical.
function(install_compressed file destination component)
    get_filename_component(name "${file}" NAME)
    set(packed "${packageFiles}/${component}/${name}.gz")
    file(MAKE_DIRECTORY "${packageFiles}/${component}")
    execute_process(COMMAND gzip -9nc "${file}" OUTPUT_FILE "${packed}" RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${file} could not be compressed: ${result}")
    endif()
    install(FILES "${packed}" DESTINATION "${destination}" COMPONENT ${component})
endfunction()

configure_file(CHANGELOG.md "${packageFiles}/changelog" COPYONLY)
# Each package has all guides, because they link to each other and the packages can be installed separately. Those for
# maintainers lead into the sources.
file(GLOB guides CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/*.md")
list(FILTER guides EXCLUDE REGEX "/(architecture|reliability)\\.md$")
set(packageComponents module tools simulator)
if(ZELTACONNECT_MANUAL_DIR)
    list(APPEND packageComponents doc)
endif()
foreach(component IN LISTS packageComponents)
    set(packageName_module qml-module-zeltaconnect)
    set(packageName_tools zeltaconnect-tools)
    set(packageName_simulator libzeltasimulator-dev)
    set(packageName_doc zeltaconnect-doc)
    set(packageName ${packageName_${component}})
    set(docs "share/doc/${packageName}")
    configure_file(packaging/changelog.Debian.in "${packageFiles}/${component}/changelog.Debian" @ONLY)
    install_compressed("${packageFiles}/${component}/changelog.Debian" ${docs} ${component})
    install_compressed("${packageFiles}/changelog" ${docs} ${component})
    if(NOT component STREQUAL "doc")
        install(FILES ${guides} DESTINATION ${docs} COMPONENT ${component})
        install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/examples" "${PROJECT_SOURCE_DIR}/docs/recipes"
            DESTINATION ${docs} COMPONENT ${component})
    endif()
    configure_file(packaging/copyright.in "${packageFiles}/copyright" @ONLY)
    install(FILES "${packageFiles}/copyright" DESTINATION ${docs} COMPONENT ${component})
    set(overrides "")
    if(component MATCHES "^(module|tools)$")
        set(overrides "# Built with _FORTIFY_SOURCE=2, but the code has few calls that it can check.
${packageName}: hardening-no-fortify-functions")
    endif()
    configure_file(packaging/lintian-overrides.in "${packageFiles}/${component}/lintian-overrides" @ONLY)
    install(FILES "${packageFiles}/${component}/lintian-overrides" DESTINATION share/lintian/overrides
        RENAME ${packageName} COMPONENT ${component})
endforeach()
foreach(program IN ITEMS zelta-demo zelta-engine-sim zelta-panel zelta-send)
    set(page "${PROJECT_SOURCE_DIR}/packaging/${program}.1")
    install_compressed("${page}" share/man/man1 tools)
    install(FILES "${PROJECT_SOURCE_DIR}/packaging/completion/${program}"
        DESTINATION share/bash-completion/completions COMPONENT tools)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${page}")
endforeach()

# The manual. Qt Creator loads the help files of the folder where Debian's Qt has its own.
if(ZELTACONNECT_MANUAL_DIR)
    install(DIRECTORY "${ZELTACONNECT_MANUAL_DIR}/html/" DESTINATION "share/doc/${packageName_doc}/html" COMPONENT doc
        OPTIONAL FILES_MATCHING PATTERN "*.html" PATTERN "*.css" PATTERN "*.js" PATTERN "images" EXCLUDE)
    install(FILES "${ZELTACONNECT_MANUAL_DIR}/zeltaconnect.qch" DESTINATION share/qt5/doc COMPONENT doc OPTIONAL)
    install(FILES packaging/doc-base DESTINATION share/doc-base RENAME ${packageName_doc} COMPONENT doc)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zeltaconnect)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_PACKAGE_CONTACT "${ZELTACONNECT_PACKAGER}")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL ${packageComponents})
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/dropcomments.cmake")
set(CPACK_ZELTACONNECT_STRIP "${CMAKE_STRIP}")
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
if(CMAKE_CROSSCOMPILING)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
    # Folders of the libraries that the packages depend on.
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
        "${CMAKE_SYSROOT}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}" "${CMAKE_SYSROOT}/lib/${CMAKE_LIBRARY_ARCHITECTURE}")
endif()

set(CPACK_DEBIAN_MODULE_PACKAGE_NAME ${packageName_module})
set(CPACK_DEBIAN_MODULE_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_MODULE_DESCRIPTION "Back end of a drum module's touch screen for QML
 This QML module registers the type ZeltaConnect 1.0. A screen reads its
 properties, handles its signals and calls its methods; the type converts
 them into datagrams to and from the drum module's sound engine. The module
 ZeltaConnect.Companion helps screens: state of the connection, files with
 their result, names of the pads, parameters.")
# For the modules that ZeltaConnect.Companion imports.
set(CPACK_DEBIAN_MODULE_PACKAGE_DEPENDS
    "qml-module-qtqml, qml-module-qtquick2, qml-module-qt-labs-folderlistmodel")
# The module only understands the ping of BusyBox or inetutils; with another one each start takes five seconds longer.
# busybox is first, because inetutils-ping replaces the usual iputils-ping. It needs a link as in docs/board.md.
set(CPACK_DEBIAN_MODULE_PACKAGE_RECOMMENDS "busybox | inetutils-ping")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${packageName_tools})
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "Simulated sound engine, file sender and demo screen of a drum module
 Programs for people who build a screen with the QML module ZeltaConnect, or
 who service a drum module: zelta-engine-sim simulates the sound engine,
 zelta-panel does so with a window, zelta-send sends files without a screen,
 and zelta-demo is a complete touch screen, which can play by itself.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${packageName_module} (= ${packageVersion}), qml-module-qtqml, \
qml-module-qtquick2, qml-module-qtquick-window2, qml-module-qtquick-templates2, qml-module-qtquick-controls2, \
qml-module-qt-labs-folderlistmodel")
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS "busybox, fonts-dejavu-core")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS "wireshark | tshark")

set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME ${packageName_simulator})
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_SIMULATOR_DESCRIPTION "Simulated sound engine of a drum module as a library for tests
 A static library for tests in C++ of a screen that uses the QML module
 ZeltaConnect. The test runs the sound engine in its own process, sends hits,
 switches on failures and reads what the screen has set. CMake finds the
 library with find_package(ZeltaSimulator).")
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_DEPENDS "libpcap-dev, qtbase5-dev (>= 5.12)")
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_RECOMMENDS "cmake, ${packageName_module}")

set(CPACK_DEBIAN_DOC_PACKAGE_NAME ${packageName_doc})
set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_COMPONENT_DOC_DESCRIPTION "Manual of the QML module ZeltaConnect
 Reference of all properties, signals and methods of the QML type
 ZeltaConnect, and the guides, as searchable HTML and as help for Qt Creator
 and Qt Assistant.")
set(CPACK_DEBIAN_DOC_PACKAGE_SUGGESTS "qtcreator | qttools5-dev-tools")
include(CPack)
