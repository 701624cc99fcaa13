# What a user gets, for both systems: `cmake --install BUILD --component program --prefix FOLDER` lays it out, and CPack
# packs that folder on Linux. Everything stands together, since the program keeps its settings beside itself. The
# guide and the sample projects are installed where they are made.
get_property(modules GLOBAL PROPERTY TELLURIX_MODULES)
install(TARGETS tellurix tlxtool ${modules} COMPONENT program RUNTIME DESTINATION . LIBRARY DESTINATION .)
install(DIRECTORY ${TELLURIX_PROGRAM_FOLDER}/hatch ${TELLURIX_PROGRAM_FOLDER}/igkPreset
    ${TELLURIX_PROGRAM_FOLDER}/fonts
    DESTINATION . COMPONENT program)
install(FILES ${PROJECT_SOURCE_DIR}/data/aggressiveness.txt ${PROJECT_SOURCE_DIR}/data/standard_tables.txt
    DESTINATION . COMPONENT program)
if(WIN32)
    return()
endif()

set(linux ${PROJECT_SOURCE_DIR}/packaging/linux)
install(PROGRAMS ${linux}/register.sh DESTINATION . COMPONENT program)
install(FILES ${linux}/tellurix.desktop ${linux}/tellurix-project.xml ${linux}/tellurix-project.svg
    ${PROJECT_SOURCE_DIR}/src/app/resources/svg/tellurix.svg DESTINATION desktop COMPONENT program)
install(FILES ${linux}/Прочти.txt DESTINATION . COMPONENT program)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION Лицензии RENAME Tellurix.txt COMPONENT program)
install(FILES ${linux}/licences.txt DESTINATION Лицензии RENAME Прочти.txt COMPONENT program)
# The first two are headers, compiled into tlxtool; the others the fonts of the drawings.
foreach(package nlohmann-json3-dev libcli11-dev fonts-liberation2 fonts-roboto-unhinted)
    install(FILES /usr/share/doc/${package}/copyright DESTINATION Лицензии RENAME ${package}.txt
        COMPONENT program OPTIONAL)
endforeach()

set(CPACK_GENERATOR TGZ)
set(CPACK_PACKAGE_FILE_NAME Tellurix-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_COMPONENTS_ALL program)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
