# add_mode_module(NAME SOURCE...): the library of a mode, under the name by which the shell looks for it, in
# the program's folder. A module is loaded, never linked, and shows createWidget alone.
function(add_mode_module name)
    set(target mode_${name})
    add_library(${target} MODULE ${ARGN})
    set_target_properties(${target} PROPERTIES
        PREFIX "" OUTPUT_NAME ${name}19 SUFFIX .dll AUTOMOC ON
        LIBRARY_OUTPUT_DIRECTORY ${TELLURIX_PROGRAM_FOLDER}
        RUNTIME_OUTPUT_DIRECTORY ${TELLURIX_PROGRAM_FOLDER})
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/modes)
    target_link_libraries(${target} PRIVATE tellurix_modes_common tellurix_warnings)
    set_property(GLOBAL APPEND PROPERTY TELLURIX_MODULES ${target})
endfunction()
