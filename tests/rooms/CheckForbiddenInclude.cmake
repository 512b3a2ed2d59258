# Two rooms of which the lower one includes the higher one: the check has to name it.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Temporary.cmake)
make_temporary(directory)
file(WRITE ${directory}/low/Low.h "#include \"High.h\"\n#include <vector>\n")
file(WRITE ${directory}/high/High.h "#include \"Low.h\"\n")
file(WRITE ${directory}/rooms.txt "low|${directory}/low|\nhigh|${directory}/high|low\n")
execute_process(COMMAND ${CMAKE_COMMAND} -DROOMS=${directory}/rooms.txt -DSOURCES=${directory}
        -P ${CMAKE_CURRENT_LIST_DIR}/CheckIncludes.cmake
    OUTPUT_VARIABLE output ERROR_VARIABLE output)
file(REMOVE_RECURSE ${directory})
message("${output}")
