# ARM with 64 bits.
set(machine aarch64)
include(${CMAKE_CURRENT_LIST_DIR}/cross.cmake)
