# Cross-building for 64-bit Windows on Debian: mingw-w64 with posix threads.
set(kt7_machine x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
