# What hosts get: headers, both libraries, CMake package, pkg-config files, manual page.
option(OVANT_INSTALL "Create the installation rules" ${PROJECT_IS_TOP_LEVEL})
if(NOT OVANT_INSTALL)
    return()
endif()
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ovant)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
install(TARGETS ovant EXPORT ovant RUNTIME COMPONENT runtime LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev
    ARCHIVE COMPONENT dev)
install(TARGETS ovant_static ovant_headers EXPORT ovant ARCHIVE COMPONENT dev)
install(EXPORT ovant FILE ovant-targets.cmake NAMESPACE ovant:: DESTINATION ${package_dir} COMPONENT dev)
write_basic_package_version_file(ovant-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES cmake/ovant-config.cmake ${PROJECT_BINARY_DIR}/ovant-config-version.cmake DESTINATION ${package_dir}
    COMPONENT dev)

if(WIN32)
    install(FILES ${PROJECT_BINARY_DIR}/ovantlib.def DESTINATION ${CMAKE_INSTALL_LIBDIR})
    install(FILES LICENSE README.md CHANGELOG.md DESTINATION .)
    return()
endif()

# gdb finds its commands by the name of the library: in its own folder where the system's library is meant, else beside
# the library.
set(script ${CMAKE_INSTALL_DATADIR}/ovant/ovant_gdb.py)
install(FILES tools/gdb/ovant_gdb.py DESTINATION ${CMAKE_INSTALL_DATADIR}/ovant COMPONENT dev)
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(auto_load_dir ${CMAKE_INSTALL_DATADIR}/gdb/auto-load${CMAKE_INSTALL_FULL_LIBDIR})
else()
    set(auto_load_dir ${CMAKE_INSTALL_LIBDIR})
endif()
file(RELATIVE_PATH to_script /${auto_load_dir} /${script})
set(auto_load ${PROJECT_BINARY_DIR}/libovant.so.${PROJECT_VERSION}-gdb.py)
file(CREATE_LINK ${to_script} ${auto_load} SYMBOLIC)
install(FILES ${auto_load} DESTINATION ${auto_load_dir} COMPONENT dev)

# The prefix is found from the file's own place, so that an installed tree can be moved.  The system's own is named, so
# that pkg-config leaves its folders out.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(pc_prefix /usr)
else()
    file(RELATIVE_PATH pc_prefix /${pkgconfig_dir} /)
    set(pc_prefix "\${pcfiledir}/${pc_prefix}")
endif()
function(install_pc pc_name pc_description pc_libs)
    configure_file(cmake/ovant.pc.in ${pc_name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${pc_name}.pc DESTINATION ${pkgconfig_dir} COMPONENT dev)
endfunction()
install_pc(ovant "${PROJECT_DESCRIPTION}" "Libs: -L\${libdir} -lovant\n")
install_pc(ovant-headers "${PROJECT_DESCRIPTION}: C++ headers alone" "")

install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev)

# The manual page, also under the name of each function in its synopsis.
install(FILES docs/ovant.3 DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT dev)
file(STRINGS docs/ovant.3 functions REGEX "^\\.(Fo AVL_|Fn AVL_[A-Za-z]+ \")")
list(TRANSFORM functions REPLACE "^\\.F[on] ([A-Za-z_]+).*" "\\1")
foreach(function IN LISTS functions)
    set(page ${PROJECT_BINARY_DIR}/man/${function}.3)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/man)
    file(CREATE_LINK ovant.3 ${page} SYMBOLIC)
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT dev)
endforeach()
