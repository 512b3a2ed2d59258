# The rooms of the house: one library target each, and the one table of who may link whom.
# tarvelo_room() refuses an edge that is not in this table.

set(TARVELO_EDGES_base "Qt6::Core")
set(TARVELO_EDGES_ui "base;Qt6::Widgets")
set(TARVELO_EDGES_pcm "base;Qt6::Multimedia;Qt6::Test")
set(TARVELO_EDGES_songdata
    "base;pcm;Qt6::Gui;PkgConfig::TagLib;PkgConfig::SoundTouch;Qt6::Sql;Qt6::Pdf")
set(TARVELO_EDGES_playlists "songdata")
set(TARVELO_EDGES_library "songdata;playlists")
set(TARVELO_EDGES_player "songdata;pcm;PkgConfig::SoundTouch;PkgConfig::Pulse")
set(TARVELO_EDGES_libraryui "library;ui")
set(TARVELO_EDGES_positions "songdata;player;ui")
set(TARVELO_EDGES_dialogs "songdata;library;player;ui;PkgConfig::Xcb")
set(TARVELO_EDGES_shell
    "base;ui;pcm;songdata;playlists;library;player;libraryui;positions;dialogs;Qt6::Widgets")

# tarvelo_room(NAME SOURCES file… [PUBLIC target…] [PRIVATE target…])
# Call it in the room's own folder; that folder becomes the room's include path.
function(tarvelo_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    if(NOT DEFINED TARVELO_EDGES_${name})
        message(FATAL_ERROR "Room ${name} is not in the table of rooms (cmake/Rooms.cmake).")
    endif()
    foreach(edge IN LISTS ROOM_PUBLIC ROOM_PRIVATE)
        if(NOT edge IN_LIST TARVELO_EDGES_${name})
            message(FATAL_ERROR "Room ${name} may not link ${edge} (cmake/Rooms.cmake).")
        endif()
    endforeach()
    add_library(${name} STATIC ${ROOM_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ROOM_PUBLIC} PRIVATE ${ROOM_PRIVATE} tarvelo_rules)
endfunction()
