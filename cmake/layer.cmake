# add_layer(NAME SOURCES ... LINKS ...): one folder of src as a library of its own. It links only what it may include,
# so that the link line proves the layers; cmake/check_layers.cmake does the same for headers.
function(add_layer name)
    cmake_parse_arguments(layer "" "" "SOURCES;LINKS" ${ARGN})
    if(NOT layer_SOURCES)
        add_library(tellurix_${name} INTERFACE)
        target_link_libraries(tellurix_${name} INTERFACE ${layer_LINKS})
        return()
    endif()
    add_library(tellurix_${name} STATIC ${layer_SOURCES})
    target_link_libraries(tellurix_${name} PUBLIC ${layer_LINKS} PRIVATE tellurix_warnings tellurix_coverage)
    target_precompile_headers(tellurix_${name} PRIVATE <string> <string_view> <vector> <map> <optional>)
endfunction()
