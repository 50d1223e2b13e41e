# find_package(ZeltaSimulator): the simulated sound engine as ZeltaSimulator::soundengine.
include(CMakeFindDependencyMacro)
find_dependency(Qt5 5.12 COMPONENTS Core Network)
include("${CMAKE_CURRENT_LIST_DIR}/ZeltaSimulatorTargets.cmake")
