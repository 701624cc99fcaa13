# link_host_headers(FOLDER...): the folder with links to headers of this machine that are the same for every
# system. /usr/include itself must not be searched: its other headers are of this system.
function(link_host_headers)
    set(links ${CMAKE_BINARY_DIR}/host_headers)
    file(MAKE_DIRECTORY ${links})
    foreach(folder ${ARGN})
        if(NOT EXISTS /usr/include/${folder})
            message(FATAL_ERROR "/usr/include/${folder} is missing: see packages.txt")
        endif()
        file(CREATE_LINK /usr/include/${folder} ${links}/${folder} SYMBOLIC)
    endforeach()
endfunction()
