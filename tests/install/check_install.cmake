# cmake -DBUILD=<build tree> -DSTAGE=<scratch dir> -DEXPECTED=<list> -P check_install.cmake
# Installs into STAGE as a package would (prefix /usr) and fails unless exactly
# the listed files are there and bin/korvane is a relative link to the program.
file(REMOVE_RECURSE ${STAGE})
set(ENV{DESTDIR} ${STAGE})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix /usr
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE found LIST_DIRECTORIES false RELATIVE ${STAGE} ${STAGE}/*)
file(STRINGS ${EXPECTED} expected REGEX "^[^#]")
set(missing ${expected})
list(REMOVE_ITEM missing ${found})
set(unexpected ${found})
list(REMOVE_ITEM unexpected ${expected})
if(missing OR unexpected)
  message(FATAL_ERROR "missing: ${missing}\nnot listed: ${unexpected}")
endif()

file(READ_SYMLINK ${STAGE}/usr/bin/korvane link)
file(REAL_PATH ${STAGE}/usr/bin/korvane resolved)
if(IS_ABSOLUTE "${link}" OR NOT resolved STREQUAL "${STAGE}/usr/libexec/korvane/korvane")
  message(FATAL_ERROR "usr/bin/korvane links to ${link}, not to ../libexec/korvane/korvane")
endif()
