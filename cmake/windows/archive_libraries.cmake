# Debian has these for its own system only: built from its source packages, which are fetched once. zlib comes ready
# for Windows.
set(sources ${PROJECT_SOURCE_DIR}/build/windows_sources)
if(NOT EXISTS ${sources}/fetched)
    execute_process(COMMAND ${PROJECT_SOURCE_DIR}/packaging/windows/fetch_sources.sh COMMAND_ERROR_IS_FATAL ANY)
endif()
find_library(TELLURIX_ZLIB libz.a REQUIRED)

# Headers stand in a folder of their own, as Debian's do, with the name by which they are included.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/archive_headers)
file(CREATE_LINK ${sources}/minizip ${CMAKE_BINARY_DIR}/archive_headers/minizip SYMBOLIC)
enable_language(C)
add_library(minizip STATIC ${sources}/minizip/zip.c ${sources}/minizip/unzip.c ${sources}/minizip/ioapi.c)
target_compile_options(minizip PRIVATE -w)
target_include_directories(minizip SYSTEM PUBLIC ${CMAKE_BINARY_DIR}/archive_headers)
target_link_libraries(minizip PUBLIC ${TELLURIX_ZLIB})
add_library(Minizip::Minizip ALIAS minizip)

add_library(pugixml STATIC ${sources}/pugixml/src/pugixml.cpp)
target_include_directories(pugixml SYSTEM PUBLIC ${sources}/pugixml/src)
add_library(pugixml::pugixml ALIAS pugixml)
