# SPDX-License-Identifier: GPL-3.0-or-later
# Puts the careers and records of the seasons in SOURCE into TEAMS, unless there are careers or records already: those
# are the user's. Records alone that are the very ones of the seasons are what a stopped run of this has left.
function(lay_out file)
  file(COPY_FILE ${SOURCE}/${file} ${TEAMS}/${file}.made)
  file(RENAME ${TEAMS}/${file}.made ${TEAMS}/${file})
endfunction()

if(EXISTS ${TEAMS}/world.rec)
  return()
endif()
if(EXISTS ${TEAMS}/world.ptr)
  file(SHA256 ${SOURCE}/world.ptr wanted)
  file(SHA256 ${TEAMS}/world.ptr found)
  if(NOT found STREQUAL wanted)
    return()
  endif()
endif()
lay_out(world.ptr)
lay_out(world.rec)
