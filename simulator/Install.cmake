# Component "simulator": the library, the headers that a test includes, and a package for find_package(ZeltaSimulator).
include(CMakePackageConfigHelpers)

set(packageDir "lib/${CMAKE_LIBRARY_ARCHITECTURE}/cmake/ZeltaSimulator")
install(TARGETS soundengine EXPORT ZeltaSimulatorTargets
    ARCHIVE DESTINATION "lib/${CMAKE_LIBRARY_ARCHITECTURE}" COMPONENT simulator)
install(EXPORT ZeltaSimulatorTargets NAMESPACE ZeltaSimulator:: DESTINATION "${packageDir}" COMPONENT simulator)
install(FILES
    commands.h
    enginetext.h
    failures.h
    kit.h
    message.h
    meters.h
    parametertable.h
    receivedfile.h
    scenario.h
    scenarioplayer.h
    soundengine.h
    transcript.h
    wire.h
    DESTINATION include/zeltasimulator/simulator COMPONENT simulator)
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/ZeltaSimulatorConfigVersion.cmake"
    VERSION "${PROJECT_VERSION}" COMPATIBILITY SameMajorVersion)
install(FILES ZeltaSimulatorConfig.cmake "${CMAKE_CURRENT_BINARY_DIR}/ZeltaSimulatorConfigVersion.cmake"
    DESTINATION "${packageDir}" COMPONENT simulator)
