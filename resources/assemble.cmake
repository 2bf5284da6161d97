# Lays the resource folder out: each pair of lines of LIST is a path in FOLDER and what it links to. What no line names any
# more is removed.
cmake_minimum_required(VERSION 3.25)

if(NOT EXISTS ${PACKAGES})
  message(FATAL_ERROR "The runtime, the faces and the icons are not installed: run `npm ci && npm run ears` in resources/.")
endif()

file(STRINGS ${LIST} lines)
set(paths sounds/chime.aiff)
while(lines)
  list(POP_FRONT lines path target)
  # The engine comes with the source; a missing file of a package means that the packages are not the lock file's.
  if(NOT path STREQUAL "engine" AND NOT EXISTS ${target})
    message(FATAL_ERROR "${target} is missing: run `npm ci && npm run ears` in resources/.")
  endif()
  cmake_path(GET path PARENT_PATH parent)
  file(MAKE_DIRECTORY ${FOLDER}/${parent})
  file(CREATE_LINK ${target} ${FOLDER}/${path} SYMBOLIC)
  list(APPEND paths ${path})
endwhile()

file(GLOB_RECURSE present RELATIVE ${FOLDER} ${FOLDER}/*)
foreach(path IN LISTS present)
  if(NOT path IN_LIST paths AND IS_SYMLINK ${FOLDER}/${path})
    file(REMOVE ${FOLDER}/${path})
  endif()
endforeach()
