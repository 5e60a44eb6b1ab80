# kt7_add_library(NAME FOLDERS LIBRARIES...): a static library of every .cpp below the folders,
# warnings on. Files below a folder named in kt7_left_out are not part of it. Inside the project a
# header is found from the root, one of src/ also from there; the target kt7_headers compiles each
# of them alone.
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
  target_include_directories(
    ${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                   $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                   $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>)
  target_link_libraries(${name} PUBLIC ${ARGN})
  kt7_compile_alone(${name} ${headers})
endfunction()

# kt7_add_public_headers(NAME GLOB...): the library's part of the public face, below include/. They
# are what is installed.
function(kt7_add_public_headers name)
  list(TRANSFORM ARGN PREPEND ${PROJECT_SOURCE_DIR}/include/kt7/)
  file(GLOB headers CONFIGURE_DEPENDS ${ARGN})
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/include
                                FILES ${headers})
  kt7_compile_alone(${name} ${headers})
endfunction()

if(NOT TARGET kt7_headers)
  add_custom_target(kt7_headers)
endif()

# kt7_compile_alone(NAME HEADER...): one source a header that includes nothing else.
function(kt7_compile_alone name)
  if(NOT ARGN)
    return()
  endif()
  set(target ${name}_headers)
  set(sources)
  foreach(header IN LISTS ARGN)
    file(RELATIVE_PATH path ${PROJECT_SOURCE_DIR} ${header})
    set(source ${PROJECT_BINARY_DIR}/headers/${path}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"  // IWYU pragma: keep\n")
    list(APPEND sources ${source})
  endforeach()
  if(TARGET ${target})
    target_sources(${target} PRIVATE ${sources})
    return()
  endif()
  add_library(${target} OBJECT EXCLUDE_FROM_ALL ${sources})
  target_link_libraries(${target} PRIVATE ${name})
  target_include_directories(${target} PRIVATE $<TARGET_PROPERTY:${name},INCLUDE_DIRECTORIES>)
  add_dependencies(kt7_headers ${target})
endfunction()
