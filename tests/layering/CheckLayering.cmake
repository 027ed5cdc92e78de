# Reads every #include of SOURCE_DIR and fails on one that points up the
# order of the layers, even where it would compile, and on two files of one
# folder that include each other (a header and its .cpp count as one file).
#
#   cmake -DSOURCE_DIR=<src> -P CheckLayering.cmake
#
# The layers, lowest first; folders on one line are side by side and
# include none of each other.
set(layers
  "vb"
  "db"
  "core"
  "ui"
  "reports/engine"
  "reports/viewers utilities rubrics"
  "marks"
  "masterdata students"
  "assessment"
  "timetable incidents tutoring"
  "app setup"
  "tools")

set(level 0)
foreach(line IN LISTS layers)
  string(REPLACE " " ";" folders "${line}")
  foreach(folder IN LISTS folders)
    set(level_of_${folder} ${level})
  endforeach()
  math(EXPR level "${level} + 1")
endforeach()

# The folder of a path under src/: its first part, two for reports/.
function(folder_of path out)
  string(REGEX MATCH "^[^/]+" first "${path}")
  if(first STREQUAL "reports")
    string(REGEX MATCH "^reports/[^/]+" first "${path}")
  endif()
  set(${out} "${first}" PARENT_SCOPE)
endfunction()

if(NOT IS_DIRECTORY "${SOURCE_DIR}")
  message(FATAL_ERROR "No source folder ${SOURCE_DIR}")
endif()
file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/*.h" "${SOURCE_DIR}/*.cpp")
list(SORT files)
set(failures "")
set(edges "")
foreach(file IN LISTS files)
  folder_of("${file}" from)
  if(NOT DEFINED level_of_${from})
    string(APPEND failures "  ${file}: the folder ${from} has no place in the layers\n")
    continue()
  endif()
  string(REGEX REPLACE "\\.(h|cpp)$" "" unit "${file}")
  file(STRINGS "${SOURCE_DIR}/${file}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"[^\"]+\"")
  foreach(line IN LISTS includes)
    string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"]+)\".*$" "\\1" included "${line}")
    folder_of("${included}" to)
    # Includes of this folder by their plain name, and of other libraries.
    if(NOT included MATCHES "/" OR NOT DEFINED level_of_${to})
      continue()
    endif()
    if(to STREQUAL from)
      string(REGEX REPLACE "\\.(h|cpp)$" "" other "${included}")
      if(NOT other STREQUAL unit)
        list(APPEND edges "${unit}>${other}")
      endif()
    elseif(NOT level_of_${to} LESS level_of_${from})
      string(APPEND failures "  ${file} includes ${included}: ${to} is not below ${from}\n")
    endif()
  endforeach()
endforeach()

list(REMOVE_DUPLICATES edges)
foreach(edge IN LISTS edges)
  string(REPLACE ">" ";" pair "${edge}")
  list(GET pair 0 a)
  list(GET pair 1 b)
  list(FIND edges "${b}>${a}" back)
  if(back GREATER -1 AND a STRLESS b)
    string(APPEND failures "  ${a} and ${b} include each other\n")
  endif()
endforeach()

if(failures)
  message(FATAL_ERROR "Includes against the layers:\n${failures}")
endif()
list(LENGTH files count)
message(STATUS "${count} files, every include points down the layers")
