# The warnings that all our own code is clean under.  ovant_warnings is linked privately: hosts never see it.
option(OVANT_WERROR "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})

add_library(ovant_warnings INTERFACE)
target_compile_options(ovant_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${OVANT_WERROR}>:-Werror>)
