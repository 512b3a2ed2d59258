# Configures edge/ with ROOM and EDGE and shows what CMake says.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Temporary.cmake)
make_temporary(directory)
execute_process(COMMAND ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/edge -B ${directory}
        -G Ninja -DROOM=${ROOM} -DEDGE=${EDGE}
    OUTPUT_VARIABLE output ERROR_VARIABLE output)
file(REMOVE_RECURSE ${directory})
string(REGEX REPLACE "[ \n]+" " " output "${output}")
message("${output}")
