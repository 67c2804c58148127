# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

# What Debian wants compressed in a package; run by cpack.
file(GLOB pages "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/man1/*.1")
if(NOT pages)
  message(FATAL_ERROR "There are no manual pages: install python3, configure and build again.")
endif()
file(GLOB changelogs "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog")
execute_process(COMMAND gzip -9n ${pages} ${changelogs} COMMAND_ERROR_IS_FATAL ANY)
