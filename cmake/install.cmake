# What hosts get: header, both libraries, CMake package, pkg-config file, manual page; and the two Debian packages.
option(OVANT_PACKAGE "Install what Debian packages carry, and let CPack make them" OFF)
option(OVANT_INSTALL "Create the installation rules" ${PROJECT_IS_TOP_LEVEL})
if(NOT OVANT_INSTALL)
    return()
endif()
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ovant)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(FILES include/ovant.h include/ovant_idioms.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
install(TARGETS ovant EXPORT ovant LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev)
install(TARGETS ovant_static EXPORT ovant ARCHIVE COMPONENT dev)
install(EXPORT ovant FILE ovant-targets.cmake NAMESPACE ovant:: DESTINATION ${package_dir} COMPONENT dev)
write_basic_package_version_file(ovant-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES cmake/ovant-config.cmake ${PROJECT_BINARY_DIR}/ovant-config-version.cmake DESTINATION ${package_dir}
    COMPONENT dev)

# The prefix is found from the file's own place, so that an installed tree can be moved.
file(RELATIVE_PATH pc_prefix /${pkgconfig_dir} /)
configure_file(cmake/ovant.pc.in ovant.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/ovant.pc DESTINATION ${pkgconfig_dir} COMPONENT dev)

if(OVANT_PACKAGE)
    include(cmake/packages.cmake)
elseif(EXISTS ${PROJECT_SOURCE_DIR}/docs/ovant.3)
    install(FILES docs/ovant.3 DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT dev)
endif()
