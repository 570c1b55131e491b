# 32-bit x86 by the compiler of 64 bits (Debian's g++-N-multilib), run under qemu: a kernel may run no 32-bit programs.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i386)
set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
# g++-multilib would bring the folder of the asm headers, but throws cross compilers out.
set(flags "-m32 -idirafter /usr/include/x86_64-linux-gnu")
set(CMAKE_C_FLAGS_INIT "${flags}")
set(CMAKE_CXX_FLAGS_INIT "${flags}")
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-i386)
set(OVANT_GTEST_SOURCE /usr/src/googletest)
