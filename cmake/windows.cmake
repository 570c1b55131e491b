# The library as ovantlib.dll, by mingw-w64: it exports what the version script lists elsewhere, undecorated and nothing
# else, and stands on the system's own libraries alone.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS c/ovant.map)
file(STRINGS c/ovant.map names REGEX "^ +[A-Za-z_0-9]+;$")
list(TRANSFORM names REPLACE " +([A-Za-z_0-9]+);" "    \\1")
list(JOIN names "\n" names)
file(CONFIGURE OUTPUT ovantlib.def CONTENT "EXPORTS\n${names}\n")
target_sources(ovant PRIVATE ${PROJECT_BINARY_DIR}/ovantlib.def)
set_target_properties(ovant PROPERTIES OUTPUT_NAME ovantlib PREFIX "")
target_link_options(ovant PRIVATE -static -nostartfiles -Wl,--disable-auto-import
    -Wl,--entry=$<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,DllMain,_DllMain@12>)
