# Cross-building for 32-bit Windows on Debian: mingw-w64 with posix threads.
set(kt7_machine i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
