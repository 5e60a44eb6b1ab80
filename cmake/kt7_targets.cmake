# One static library of a folder, or of a list of folders: every .cpp below it, warnings on. Its
# headers are found from KT7_HEADER_ROOT, and the target all_verify_interface_header_sets compiles
# each of them alone. Files below a folder named in kt7_left_out are not part of it.
set(KT7_HEADER_ROOT ${PROJECT_SOURCE_DIR})

function(kt7_add_library name folders)
  set(sources)
  set(headers)
  foreach(folder IN LISTS folders)
    file(GLOB_RECURSE folder_sources CONFIGURE_DEPENDS ${folder}/*.cpp)
    file(GLOB_RECURSE folder_headers CONFIGURE_DEPENDS ${folder}/*.h)
    list(APPEND sources ${folder_sources})
    list(APPEND headers ${folder_headers})
  endforeach()
  foreach(folder IN LISTS kt7_left_out)
    list(FILTER sources EXCLUDE REGEX "/${folder}")
    list(FILTER headers EXCLUDE REGEX "/${folder}")
  endforeach()
  add_library(${name} STATIC ${sources})
  target_compile_options(${name} PRIVATE -Wall -Wextra -Wshadow -Wconversion -Werror)
  # g++ 12 sees overlaps in "text" + std::string() that are not there.
  target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
  target_link_libraries(${name} PUBLIC ${ARGN})
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${KT7_HEADER_ROOT} FILES ${headers})
  set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
endfunction()
