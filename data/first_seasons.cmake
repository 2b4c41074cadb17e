# SPDX-License-Identifier: GPL-3.0-or-later
# Puts the careers and records of the seasons in SOURCE into TEAMS, unless there are careers or records already: those
# are the user's. Records or an archive alone that are the very ones of the seasons are what a stopped run of this has
# left.
function(lay_out file)
  file(COPY_FILE ${SOURCE}/${file} ${TEAMS}/${file}.made)
  file(RENAME ${TEAMS}/${file}.made ${TEAMS}/${file})
endfunction()

if(EXISTS ${TEAMS}/world.rec)
  return()
endif()
foreach(file world.ptr world.matches)
  if(EXISTS ${TEAMS}/${file})
    file(SHA256 ${SOURCE}/${file} wanted)
    file(SHA256 ${TEAMS}/${file} found)
    if(NOT found STREQUAL wanted)
      return()
    endif()
  endif()
endforeach()
lay_out(world.matches)
lay_out(world.ptr)
lay_out(world.rec)
