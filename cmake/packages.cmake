# libovant1 and libovant-dev, built by ./dev package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Ovant maintainers <maintainers@ovant.example>")
set(CPACK_COMPONENTS_ALL runtime dev)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "ordered containers of the host's own records")
set(details "An Ovant tree links records of its host: it allocates nothing for a node,
and a record may stand in several trees at once. Besides insertion, removal
and searches it splits, joins, extracts and deletes whole ranges.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libovant1)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${details}")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libovant-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libovant1 (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), libc6-dev")
set(CPACK_DEBIAN_DEV_DESCRIPTION "${details}

This package holds the header, the static library and what builds find it by.")

# The control files of a shared library.  The names are as old as the library: each came with 1.3.0.
file(STRINGS c/ovant.map names REGEX "^ +[A-Za-z_0-9]+;$")
list(TRANSFORM names REPLACE " +([A-Za-z_0-9]+);" " \\1@OVANT_1.3 1.3.0")
list(SORT names)
list(JOIN names "\n" names)
set(control ${PROJECT_BINARY_DIR}/debian)
file(WRITE ${control}/symbols "libovant.so.1 libovant1 (>= 1.3.0)\n OVANT_1.3@OVANT_1.3 1.3.0\n${names}\n")
file(WRITE ${control}/shlibs "libovant 1 libovant1 (>= 1.3.0)\n")
file(WRITE ${control}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${control}/symbols ${control}/shlibs ${control}/triggers)

# What every Debian package carries.  gzip -n leaves the time out, so that equal sources give equal packages.
function(install_compressed file name destination component)
    set(packed ${PROJECT_BINARY_DIR}/debian/${name})
    execute_process(COMMAND gzip -9nc INPUT_FILE ${PROJECT_SOURCE_DIR}/${file} OUTPUT_FILE ${packed}
        COMMAND_ERROR_IS_FATAL ANY)
    install(FILES ${packed} DESTINATION ${destination} COMPONENT ${component})
endfunction()
foreach(package runtime:libovant1 dev:libovant-dev)
    string(REPLACE ":" ";" package ${package})
    list(GET package 0 component)
    list(GET package 1 name)
    set(doc ${CMAKE_INSTALL_DATADIR}/doc/${name})
    install(FILES cmake/debian/copyright DESTINATION ${doc} COMPONENT ${component})
    install_compressed(cmake/debian/changelog changelog.Debian.gz ${doc} ${component})
    if(EXISTS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
        install_compressed(CHANGELOG.md changelog.gz ${doc} ${component})
    endif()
endforeach()
if(EXISTS ${PROJECT_SOURCE_DIR}/docs/ovant.3)
    install_compressed(docs/ovant.3 ovant.3.gz ${CMAKE_INSTALL_MANDIR}/man3 dev)
endif()

include(CPack)
