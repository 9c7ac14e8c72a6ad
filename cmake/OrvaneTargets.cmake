# orvane_library(<folder> [SOURCES ...] [NATIVE_SOURCES ...] [WINDOWS_SOURCES ...] [LINKS ...])
#
# One folder of the tree as one library; the target is the folder's path with '-' for '/'. The path counts from
# the calling file's folder, or else from the top of the tree.
# Its headers are reached by the folder's path ("platform/LogLine.h"), and only by targets that link it:
# the include folder that a library hands on holds links to its own headers and nothing else. So the link
# list is the licence to include, and a wrong include fails to compile.
# NATIVE_SOURCES and WINDOWS_SOURCES are the files that replace one another at link time.
function(orvane_library folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;NATIVE_SOURCES;WINDOWS_SOURCES;LINKS" ${ARGN})
  string(REPLACE "/" "-" target ${folder})
  set(root ${CMAKE_CURRENT_SOURCE_DIR})
  if(NOT IS_DIRECTORY ${root}/${folder})
    set(root ${CMAKE_SOURCE_DIR})
  endif()
  if(WIN32)
    list(APPEND ARG_SOURCES ${ARG_WINDOWS_SOURCES})
  else()
    list(APPEND ARG_SOURCES ${ARG_NATIVE_SOURCES})
  endif()
  orvane_header_links(${target} ${root} ${folder} include_folder)
  if(ARG_SOURCES)
    list(TRANSFORM ARG_SOURCES PREPEND ${root}/${folder}/)
    add_library(${target} STATIC ${ARG_SOURCES})
    target_include_directories(${target} PUBLIC ${include_folder})
    target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE orvane-options)
  else()
    add_library(${target} INTERFACE)
    target_include_directories(${target} INTERFACE ${include_folder})
    target_link_libraries(${target} INTERFACE ${ARG_LINKS})
  endif()
endfunction()

# orvane_objects(<folder> SOURCES ... [LINKS ...])
#
# As orvane_library, for a folder whose objects define what a lower library leaves open: they are linked as
# they stand into each program that names the target, where an archive would be searched too early.
function(orvane_objects folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  string(REPLACE "/" "-" target ${folder})
  orvane_header_links(${target} ${CMAKE_CURRENT_SOURCE_DIR} ${folder} include_folder)
  list(TRANSFORM ARG_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/)
  add_library(${target} OBJECT ${ARG_SOURCES})
  target_include_directories(${target} PUBLIC ${include_folder})
  target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE orvane-options)
endfunction()

# Links every header of `folder` below `root` into an include folder of the build tree that belongs to `target`
# alone.
function(orvane_header_links target root folder result)
  set(include_folder ${CMAKE_BINARY_DIR}/include/${target})
  file(REMOVE_RECURSE ${include_folder})
  file(MAKE_DIRECTORY ${include_folder}/${folder})
  file(GLOB headers CONFIGURE_DEPENDS ${root}/${folder}/*.h)
  foreach(header ${headers})
    get_filename_component(name ${header} NAME)
    file(CREATE_LINK ${header} ${include_folder}/${folder}/${name} COPY_ON_ERROR SYMBOLIC)
  endforeach()
  set(${result} ${include_folder} PARENT_SCOPE)
endfunction()

# orvane_system_headers(<target> <path below /usr/include> ...)
#
# Makes header-only libraries of the build machine usable in a cross build: /usr/include itself must not be
# on the cross compiler's path, so each named folder or file is linked into an include folder of its own.
function(orvane_system_headers target)
  set(include_folder ${CMAKE_BINARY_DIR}/include/${target})
  file(MAKE_DIRECTORY ${include_folder})
  foreach(name ${ARGN})
    if(NOT EXISTS /usr/include/${name})
      message(FATAL_ERROR "${target} needs /usr/include/${name}")
    endif()
    if(NOT EXISTS ${include_folder}/${name})
      file(CREATE_LINK /usr/include/${name} ${include_folder}/${name} SYMBOLIC)
    endif()
  endforeach()
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE ${include_folder})
endfunction()
