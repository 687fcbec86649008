# Compiles on Debian for 64-bit Windows; what was made for it beforehand (scripts/windows) lies in ORVEL_WINDOWS.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH $ENV{ORVEL_WINDOWS} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# As much stack as a program has on Debian.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--stack,8388608,--no-insert-timestamp")
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
# Of Qt, what makes sources out of sources is Debian's own.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
set(PKG_CONFIG_ARGN --static)
set(ENV{PKG_CONFIG_LIBDIR} $ENV{ORVEL_WINDOWS}/lib/pkgconfig:/usr/x86_64-w64-mingw32/lib/pkgconfig)
