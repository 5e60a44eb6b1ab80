# kt7_describe(FOLDER): writes the interface description, what C++ follows from it, the header and
# the type library into FOLDER. The describing program runs on this machine, not on the one that is
# built for.
find_program(KT7_NATIVE_CXX NAMES g++ c++ clang++ REQUIRED)
find_program(KT7_WIDL NAMES x86_64-w64-mingw32-widl widl REQUIRED)
find_path(KT7_WIDL_INCLUDE oaidl.idl PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
          NO_CMAKE_FIND_ROOT_PATH REQUIRED)
find_path(KT7_STANDARD_TYPES stdole2.tlb PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows
          /usr/lib/wine/x86_64-windows NO_CMAKE_FIND_ROOT_PATH REQUIRED)

function(kt7_describe folder)
  set(here ${PROJECT_SOURCE_DIR}/fronts/com/description)
  set(ids ${PROJECT_SOURCE_DIR}/fronts/com/ids/kt7hrlib.ids)
  file(GLOB sources CONFIGURE_DEPENDS ${here}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${here}/*.h)
  file(GLOB tables CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/kt7/*.h)
  file(MAKE_DIRECTORY ${folder})

  set(program ${folder}/describe)
  add_custom_command(
    OUTPUT ${program}
    COMMAND ${KT7_NATIVE_CXX} -std=c++20 -O0 -Wall -Wextra -Wshadow -Wconversion -Werror
            -Wno-restrict -I ${PROJECT_SOURCE_DIR}/include -I ${PROJECT_SOURCE_DIR}/src ${sources} -o ${program}
    DEPENDS ${sources} ${headers} ${tables} VERBATIM)

  set(described operation_slots.inc self_calls.inc profile_slots.inc profile_self_calls.inc
      profile_ids.inc identities.inc)
  list(TRANSFORM described PREPEND ${folder}/)
  add_custom_command(OUTPUT ${folder}/KT7HRLib.idl ${described}
                     COMMAND ${program} ${ids} ${folder}
                     DEPENDS ${program} ${ids} VERBATIM)

  set(width -m64)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(width -m32)
  endif()
  add_custom_command(
    OUTPUT ${folder}/KT7HRLib.h
    COMMAND ${KT7_WIDL} ${width} -h -H ${folder}/KT7HRLib.h -I ${KT7_WIDL_INCLUDE}
            ${folder}/KT7HRLib.idl
    DEPENDS ${folder}/KT7HRLib.idl VERBATIM)
  add_custom_command(
    OUTPUT ${folder}/KT7HRLib.tlb
    COMMAND ${KT7_WIDL} ${width} -t -o ${folder}/KT7HRLib.tlb -I ${KT7_WIDL_INCLUDE}
            -L ${KT7_STANDARD_TYPES} ${folder}/KT7HRLib.idl
    DEPENDS ${folder}/KT7HRLib.idl VERBATIM)
  # By its whole path: another one of that name beside the resource script would be taken instead.
  file(WRITE ${folder}/KT7HRLib.rc "1 TYPELIB \"${folder}/KT7HRLib.tlb\"\n")
  set_source_files_properties(${folder}/KT7HRLib.rc PROPERTIES
                              OBJECT_DEPENDS ${folder}/KT7HRLib.tlb)
  add_custom_target(kt7describe DEPENDS ${folder}/KT7HRLib.h ${folder}/KT7HRLib.tlb ${described})
endfunction()
