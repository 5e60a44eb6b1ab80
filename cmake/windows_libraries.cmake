# What Debian's mingw packages lack, built from the sources that scripts/windows_sources fetched,
# under the names that host/ and fronts/ link on Debian: SQLite::SQLite3, csv, utf8proc; and gcrypt
# with what it needs as a static library.
set(KT7_WINDOWS_SOURCES ${PROJECT_SOURCE_DIR}/build-windows-sources CACHE PATH
    "The folder that scripts/windows_sources filled")

add_library(kt7sqlite3 STATIC ${KT7_WINDOWS_SOURCES}/sqlite/sqlite3.c)
target_include_directories(kt7sqlite3 SYSTEM PUBLIC ${KT7_WINDOWS_SOURCES}/sqlite)
target_compile_definitions(kt7sqlite3 PRIVATE SQLITE_ENABLE_COLUMN_METADATA SQLITE_DQS=0
                           SQLITE_OMIT_DEPRECATED SQLITE_OMIT_LOAD_EXTENSION)
add_library(SQLite::SQLite3 ALIAS kt7sqlite3)

add_library(csv STATIC ${KT7_WINDOWS_SOURCES}/libcsv/libcsv.c)
target_include_directories(csv SYSTEM PUBLIC ${KT7_WINDOWS_SOURCES}/libcsv)

add_library(utf8proc STATIC ${KT7_WINDOWS_SOURCES}/utf8proc/utf8proc.c)
target_include_directories(utf8proc SYSTEM PUBLIC ${KT7_WINDOWS_SOURCES}/utf8proc)
target_compile_definitions(utf8proc PUBLIC UTF8PROC_STATIC)

find_library(KT7_GCRYPT NAMES libgcrypt.a REQUIRED)
find_library(KT7_GPG_ERROR NAMES libgpg-error.a REQUIRED)
add_library(gcrypt INTERFACE)
target_link_libraries(gcrypt INTERFACE ${KT7_GCRYPT} ${KT7_GPG_ERROR} ws2_32)

# nlohmann-json3-dev is of no machine: its headers serve here too, alone in a folder, so that no
# other header of Debian's comes with them.
find_path(KT7_JSON_HEADERS nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH
          NO_DEFAULT_PATH REQUIRED)
set(kt7_json_folder ${PROJECT_BINARY_DIR}/json)
file(MAKE_DIRECTORY ${kt7_json_folder})
file(CREATE_LINK ${KT7_JSON_HEADERS}/nlohmann ${kt7_json_folder}/nlohmann SYMBOLIC)
add_library(kt7json INTERFACE)
target_include_directories(kt7json SYSTEM INTERFACE ${kt7_json_folder})
add_library(nlohmann_json::nlohmann_json ALIAS kt7json)
