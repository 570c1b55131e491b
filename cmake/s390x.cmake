# Big-endian.
set(machine s390x)
include(${CMAKE_CURRENT_LIST_DIR}/cross.cmake)
