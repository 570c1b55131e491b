include(${CMAKE_CURRENT_LIST_DIR}/ovant-targets.cmake)

# Written in C++, but nothing in it refers to the C++ run-time library: a project of C alone can link the archive.
get_target_property(_ovant_configurations ovant::static IMPORTED_CONFIGURATIONS)
foreach(_ovant_configuration IN LISTS _ovant_configurations)
    set_property(TARGET ovant::static PROPERTY IMPORTED_LINK_INTERFACE_LANGUAGES_${_ovant_configuration} C)
endforeach()
