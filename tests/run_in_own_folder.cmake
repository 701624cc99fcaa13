# Runs a test program as users run Tellurix: in a folder with program, module libraries and data, which is
# made anew, since settings and view settings are written beside the program.
#   cmake -DPROGRAM=... -DPROGRAM_FOLDER=... -DFOLDER=... -DFILTER=... -P run_in_own_folder.cmake
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
get_filename_component(name ${PROGRAM} NAME)
file(GLOB libraries ${PROGRAM_FOLDER}/*.dll ${PROGRAM_FOLDER}/tellurix)
foreach(file ${PROGRAM} ${libraries})
    get_filename_component(file_name ${file} NAME)
    file(CREATE_LINK ${file} ${FOLDER}/${file_name} COPY_ON_ERROR)
endforeach()
foreach(data fonts hatch igkPreset aggressiveness.txt standard_tables.txt)
    if(EXISTS ${PROGRAM_FOLDER}/${data})
        file(COPY ${PROGRAM_FOLDER}/${data} DESTINATION ${FOLDER})
    endif()
endforeach()
execute_process(COMMAND ${FOLDER}/${name} --gtest_brief=1 --gtest_filter=${FILTER}
    WORKING_DIRECTORY ${FOLDER} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${name}: ${result}")
endif()
file(REMOVE_RECURSE ${FOLDER})
