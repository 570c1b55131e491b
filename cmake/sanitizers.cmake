# OVANT_SANITIZE="address,undefined": everything is instrumented, and the first finding ends the run.
set(OVANT_SANITIZE "" CACHE STRING "Sanitizers to build with, separated by commas")
if(OVANT_SANITIZE)
    add_compile_options(-fsanitize=${OVANT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${OVANT_SANITIZE})
endif()
