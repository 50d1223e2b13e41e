# libpcap, which reads and writes recordings of the simulated engine. The product does not use it.
find_path(PCAP_INCLUDE_DIR pcap/pcap.h)
find_library(PCAP_LIBRARY pcap)
mark_as_advanced(PCAP_INCLUDE_DIR PCAP_LIBRARY)

add_library(zeltaconnect-pcap INTERFACE)
if(PCAP_INCLUDE_DIR AND PCAP_LIBRARY)
    target_include_directories(zeltaconnect-pcap SYSTEM INTERFACE "${PCAP_INCLUDE_DIR}")
    target_link_libraries(zeltaconnect-pcap INTERFACE "${PCAP_LIBRARY}")
elseif(CMAKE_CROSSCOMPILING)
    # The SDK of a board may have none. The module does not need it.
    message(STATUS "No libpcap in the sysroot: the simulated engine cannot be built, the module can")
    target_link_libraries(zeltaconnect-pcap INTERFACE pcap)
else()
    message(FATAL_ERROR "The simulated engine needs libpcap (Debian: libpcap-dev)")
endif()
