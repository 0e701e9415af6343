# A room is one folder of src/ and one static library. Its headers are reachable only for rooms that name it among
# their USES, because each room's include folder holds nothing but a link to that room: an include against the flow
# of the house does not build.
function(add_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  set(target room_${name})
  string(REPLACE "/" "_" target ${target})
  add_library(${target} STATIC ${ROOM_SOURCES})
  set(door ${PROJECT_BINARY_DIR}/rooms/${target})
  cmake_path(GET name PARENT_PATH parent)
  file(MAKE_DIRECTORY ${door}/${parent})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${name} ${door}/${name} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${door})
  foreach(used IN LISTS ROOM_USES)
    string(REPLACE "/" "_" used_target room_${used})
    target_link_libraries(${target} PUBLIC ${used_target})
  endforeach()
  target_link_libraries(${target} PUBLIC project_flags)
endfunction()
