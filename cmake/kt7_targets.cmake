# One static library a folder: every .cpp below it, warnings on, includes from src/ and the root.
function(kt7_add_library name folder)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  add_library(${name} STATIC ${sources})
  target_compile_options(${name} PRIVATE -Wall -Wextra -Wshadow -Wconversion -Werror)
  target_link_libraries(${name} PUBLIC ${ARGN})
endfunction()
