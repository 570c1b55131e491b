# For another machine with Linux, named by `machine`: by Debian's cross compiler, run under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${machine})
set(CMAKE_C_COMPILER ${machine}-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER ${machine}-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${machine} -L /usr/${machine}-linux-gnu)
set(OVANT_GTEST_SOURCE /usr/src/googletest)
