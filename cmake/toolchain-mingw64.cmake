# Cross-builds Korvane for 64-bit Windows with Debian's mingw-w64 (the posix
# thread model, for std::thread and std::mutex):
#   cmake -S . -B build/windows -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-mingw64.cmake -DKORVANE_GUI=OFF
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(KORVANE_MINGW_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${KORVANE_MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KORVANE_MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${KORVANE_MINGW_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${KORVANE_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# GCC 12's -Wrestrict sees overlaps in std::string that cannot happen
# (GCC bug 105329); its warnings would drown the real ones.
set(CMAKE_CXX_FLAGS_INIT "-Wno-restrict")

# Static: the .exe files need no DLL of the compiler beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

# The tests and the test discovery run the .exe files under Wine.
find_program(KORVANE_WINE wine)
if(KORVANE_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${KORVANE_WINE})
endif()
