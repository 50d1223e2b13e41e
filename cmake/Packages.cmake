# Debian packages: the module for machines that show a screen, and the tools for people who build or service one.

set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(FILES "${PROJECT_SOURCE_DIR}/simulator/scenarios/frontpanel.scenario"
    "${PROJECT_SOURCE_DIR}/simulator/scenarios/verse.scenario"
    DESTINATION share/zeltaconnect-tools/scenarios COMPONENT tools)
install(TARGETS zelta-demo zelta-engine-sim zelta-send RUNTIME DESTINATION bin COMPONENT tools)

set(packageVersion "${PROJECT_VERSION}-1")
set(ZELTACONNECT_PACKAGER "ZeltaConnect maintainers <maintainers@zeltaconnect.example>" CACHE STRING
    "Name and address of whoever answers for the packages")
string(TIMESTAMP packageYear "%Y" UTC)
string(TIMESTAMP packageDate "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(packageFiles "${PROJECT_BINARY_DIR}/packaging")

# install_compressed FILE DESTINATION COMPONENT: without name and time in the archive, so that a package that is
# built again with the same SOURCE_DATE_EPOCH is the same.
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
set(guides_module board.md screen-guide.md transfers.md)
set(guides_tools simulator.md)
foreach(component IN ITEMS module tools)
    set(packageName_module qml-module-zeltaconnect)
    set(packageName_tools zeltaconnect-tools)
    set(packageName ${packageName_${component}})
    set(docs "share/doc/${packageName}")
    configure_file(packaging/changelog.Debian.in "${packageFiles}/${component}/changelog.Debian" @ONLY)
    install_compressed("${packageFiles}/${component}/changelog.Debian" ${docs} ${component})
    install_compressed("${packageFiles}/changelog" ${docs} ${component})
    foreach(guide IN LISTS guides_${component})
        install(FILES "${PROJECT_SOURCE_DIR}/docs/${guide}" DESTINATION ${docs} COMPONENT ${component})
    endforeach()
    configure_file(packaging/copyright.in "${packageFiles}/copyright" @ONLY)
    install(FILES "${packageFiles}/copyright" DESTINATION ${docs} COMPONENT ${component})
    configure_file(packaging/lintian-overrides.in "${packageFiles}/${component}/lintian-overrides" @ONLY)
    install(FILES "${packageFiles}/${component}/lintian-overrides" DESTINATION share/lintian/overrides
        RENAME ${packageName} COMPONENT ${component})
endforeach()
foreach(program IN ITEMS zelta-demo zelta-engine-sim zelta-send)
    set(page "${PROJECT_SOURCE_DIR}/packaging/${program}.1")
    install_compressed("${page}" share/man/man1 tools)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${page}")
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zeltaconnect)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_PACKAGE_CONTACT "${ZELTACONNECT_PACKAGER}")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL module tools)
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
    # Where the libraries are whose packages are looked for.
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
        "${CMAKE_SYSROOT}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}" "${CMAKE_SYSROOT}/lib/${CMAKE_LIBRARY_ARCHITECTURE}")
endif()

set(CPACK_DEBIAN_MODULE_PACKAGE_NAME ${packageName_module})
set(CPACK_DEBIAN_MODULE_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_MODULE_DESCRIPTION "Back end of a drum module's touch screen for QML
 This QML module registers the type ZeltaConnect 1.0. A screen reads its
 properties, hears its signals and calls its methods; the type turns them
 into datagrams to and from the drum module's sound engine.")
# Any other ping than that of inetutils or BusyBox makes the module wait ten seconds when it starts.
set(CPACK_DEBIAN_MODULE_PACKAGE_RECOMMENDS "inetutils-ping")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${packageName_tools})
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "Simulated sound engine, file sender and demo screen of a drum module
 Programs for people who build a screen on the QML module ZeltaConnect, or
 who service a drum module: zelta-engine-sim plays the sound engine on any
 machine, zelta-send sends files without a screen, and zelta-demo is a touch
 screen that shows the system at work.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${packageName_module} (= ${packageVersion}), qml-module-qtqml, \
qml-module-qtquick2, qml-module-qtquick-window2, qml-module-qtquick-templates2, qml-module-qtquick-controls2, \
qml-module-qt-labs-folderlistmodel")
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS "fonts-dejavu-core")
include(CPack)
