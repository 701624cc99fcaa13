# Which folder may include which. Rows from the bottom up: a folder sees itself and every row above it.
# The records folders stand below src/modules, the code beside them stands higher.
cmake_minimum_required(VERSION 3.25)
set(layers
    platform
    core/base
    dictionaries
    calc
    drawing
    "db/records|section/records|dialogs/records"
    modules
    section
    db
    ground
    persistence
    exchange
    site
    tables
    plots
    document
    reports
    paint
    settings
    core/facade
    dialogs
    app)

get_filename_component(source "${CMAKE_CURRENT_LIST_DIR}/../src" ABSOLUTE)

# The row of a path below src: the first row, from the bottom, whose folder it stands in; records come first
# because they are the more exact match.
function(layer_of path result)
    set(row 0)
    foreach(layer ${layers})
        string(REPLACE "|" ";" folders "${layer}")
        foreach(folder ${folders})
            string(FIND "${path}" "${folder}/" at)
            if(at EQUAL 0)
                set(${result} ${row} PARENT_SCOPE)
                return()
            endif()
        endforeach()
        math(EXPR row "${row} + 1")
    endforeach()
    set(${result} -1 PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE files RELATIVE ${source} ${source}/*.h ${source}/*.cpp ${source}/*.def)
list(LENGTH files count)
if(count LESS 50)
    message(FATAL_ERROR "Only ${count} source files found below ${source}: the check looks in the wrong place.")
endif()
set(faults 0)
foreach(file ${files})
    layer_of(${file} own)
    if(own EQUAL -1)
        message(SEND_ERROR "${file}: its folder is in no layer")
        math(EXPR faults "${faults} + 1")
    endif()
    file(STRINGS ${source}/${file} includes REGEX "^#include \"")
    foreach(line ${includes})
        string(REGEX REPLACE "^#include \"([^\"]*)\".*" "\\1" target "${line}")
        layer_of(${target} wanted)
        if(wanted EQUAL -1 OR wanted GREATER own)
            message(SEND_ERROR "${file} includes ${target}, which stands above it or in no layer")
            math(EXPR faults "${faults} + 1")
        endif()
    endforeach()
    file(STRINGS ${source}/${file} casts REGEX "qobject_cast<TXWidget|findChild(ren)?<TXWidget")
    if(casts)
        message(SEND_ERROR "${file}: across the border of a module only dynamic_cast works")
        math(EXPR faults "${faults} + 1")
    endif()
    if(NOT file MATCHES "^platform/.*_windows.cpp$")
        file(STRINGS ${source}/${file} systems REGEX "_WIN32|windows\\.h")
        if(systems)
            message(SEND_ERROR "${file}: what depends on the system belongs into src/platform")
            math(EXPR faults "${faults} + 1")
        endif()
    endif()
endforeach()

# The screens: their own folder, what they share, the headers of modules and all that needs no toolkit. They are
# libraries of their own, so nothing of the shell may slip in, and no cast that asks for one meta-object.
get_filename_component(modes "${CMAKE_CURRENT_LIST_DIR}/../modes" ABSOLUTE)
file(GLOB_RECURSE mode_files RELATIVE ${modes} ${modes}/*.h ${modes}/*.cpp)
foreach(file ${mode_files})
    string(REGEX REPLACE "/.*" "" own "${file}")
    file(STRINGS ${modes}/${file} includes REGEX "^#include \"")
    foreach(line ${includes})
        string(REGEX REPLACE "^#include \"([^\"]*)\".*" "\\1" target "${line}")
        if(NOT target MATCHES "^(${own}|common|platform|core/base|dictionaries|modules|section|db|ground|persistence|dialogs/records|calc|drawing|exchange|site|tables|plots|document|reports|paint)/")
            message(SEND_ERROR "modes/${file} includes ${target}, which is no module's business")
            math(EXPR faults "${faults} + 1")
        endif()
    endforeach()
    file(STRINGS ${modes}/${file} casts REGEX "qobject_cast<TXWidget|findChild(ren)?<TXWidget")
    if(casts)
        message(SEND_ERROR "modes/${file}: across the border of a module only dynamic_cast works")
        math(EXPR faults "${faults} + 1")
    endif()
endforeach()
list(LENGTH mode_files mode_count)
math(EXPR count "${count} + ${mode_count}")
message(STATUS "${count} files, ${faults} faults")
