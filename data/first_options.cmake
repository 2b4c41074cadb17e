# SPDX-License-Identifier: GPL-3.0-or-later
# Writes the settings of a first start to TARGET unless it exists.
if(NOT EXISTS ${TARGET})
  file(WRITE ${TARGET} "\r\nworld\r\n000000\r\nFFFFFF\r\nSans Serif\r\n")
endif()
