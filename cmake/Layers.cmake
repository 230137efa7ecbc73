# One library a folder of src/, which sees the headers of exactly those folders it is linked to: an include
# that points upward doesn't compile. The headers are reached through a link build/include/<folder>/<folder>.

# crownlab_folder(NAME SOURCES... USES FOLDERS...)
function(crownlab_folder name)
  cmake_parse_arguments(arg "" "" "SOURCES;USES" ${ARGN})
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${name} ${root}/${name} COPY_ON_ERROR SYMBOLIC)
  list(TRANSFORM arg_SOURCES PREPEND ${name}/)
  add_library(crownlab_${name} STATIC ${arg_SOURCES})
  target_include_directories(crownlab_${name} PUBLIC ${root})
  list(TRANSFORM arg_USES PREPEND crownlab_)
  target_link_libraries(crownlab_${name} PUBLIC ${arg_USES} PRIVATE crownlab_options)
endfunction()
