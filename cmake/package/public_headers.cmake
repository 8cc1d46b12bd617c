# Copies the public headers for an installation, by cmake -P:
#   SOURCE  the root of the tree, TARGET the folder for the copies, which keep their paths below it
#   HEADERS "NAME=PATH+PATH": NAME is a header that includes these; what they include follows
#   STAMP   is touched at the end, and STAMP.d says what was read
#
# In the tree headers include each other from its root. In a program that would be somebody else's grid/ or control/, so
# the copies say <vmGridViews/...>.
cmake_minimum_required(VERSION 3.25)

set(open)
set(wanted)
foreach(entry ${HEADERS})
  string(REGEX MATCH "^([^=]+)=(.+)$" entry "${entry}")
  set(name ${CMAKE_MATCH_1})
  string(REPLACE "+" ";" paths "${CMAKE_MATCH_2}")
  list(APPEND open ${paths})
  list(TRANSFORM paths REPLACE ".+" "#include <vmGridViews/\\0>\n")
  list(JOIN paths "" text)
  file(CONFIGURE OUTPUT ${TARGET}/${name} CONTENT "#pragma once\n${text}" @ONLY)
  list(APPEND wanted ${TARGET}/${name})
endforeach()

set(read)
while(open)
  list(POP_FRONT open header)
  if(header IN_LIST read)
    continue()
  endif()
  list(APPEND read ${header})
  file(READ ${SOURCE}/${header} text)
  string(REGEX MATCHALL "#include \"[^\"\n]+\"" includes "${text}")
  foreach(include ${includes})
    string(REGEX REPLACE "^#include \"(.+)\"$" "\\1" include "${include}")
    list(APPEND open ${include})
  endforeach()
  string(REGEX REPLACE "#include \"([^\"\n]+)\"" "#include <vmGridViews/\\1>" text "${text}")
  file(WRITE ${TARGET}/${header}.new "${text}")
  file(COPY_FILE ${TARGET}/${header}.new ${TARGET}/${header} ONLY_IF_DIFFERENT)
  file(REMOVE ${TARGET}/${header}.new)
  list(APPEND wanted ${TARGET}/${header})
endwhile()

file(GLOB_RECURSE present ${TARGET}/*)
list(REMOVE_ITEM present ${wanted})
if(present)
  file(REMOVE ${present})
endif()

list(TRANSFORM read PREPEND "${SOURCE}/")
list(JOIN read " " read)
file(WRITE ${STAMP}.d "${STAMP}: ${read}\n")
file(TOUCH ${STAMP})
