# What both Windows toolchains share; kt7_machine is set by the file that includes this one.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${kt7_machine})
set(kt7_triplet ${kt7_machine}-w64-mingw32)

set(CMAKE_C_COMPILER ${kt7_triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${kt7_triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${kt7_triplet}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${kt7_triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Windows 7 and later; texts are UTF-16. The C++ runtime is linked in, so that a DLL imports nothing
# but what the system has.
set(kt7_windows "-D_WIN32_WINNT=0x0601 -DUNICODE -D_UNICODE")
set(CMAKE_C_FLAGS_INIT "${kt7_windows}")
set(CMAKE_CXX_FLAGS_INIT "${kt7_windows}")
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
endforeach()
