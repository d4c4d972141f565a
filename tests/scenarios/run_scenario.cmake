# Runs one scenario (see CMakeLists.txt): cmake -DDRIVER=... -DSCENARIOS=...
# -DNAME=... -DWORK=... [-DEMULATOR=wine] -P run_scenario.cmake

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(COPY ${SCENARIOS}/fixtures/ DESTINATION ${WORK})

if(EMULATOR)
  set(ENV{WINEDEBUG} -all)
endif()
# Wine on a loaded machine now and then ends a program before its first line
# (nothing written, the work folder untouched): that start is tried again.
foreach(attempt 1 2 3)
  execute_process(
    COMMAND ${EMULATOR} ${DRIVER} --store ${WORK}/store.ini ${SCENARIOS}/${NAME}.scn
    WORKING_DIRECTORY ${WORK}
    OUTPUT_VARIABLE transcript
    ERROR_VARIABLE errors
    RESULT_VARIABLE status)
  if(NOT EMULATOR OR NOT transcript STREQUAL "" OR EXISTS ${WORK}/store.ini)
    break()
  endif()
  message(STATUS "${EMULATOR} ended the driver before it wrote anything (${status}: ${errors}); once more")
endforeach()

# A Windows driver under Wine writes CR LF and Windows paths: Z:\work\...,
# with each backslash doubled in the transcript. Made Linux-like, the same
# transcript must come out.
if(EMULATOR)
  string(REPLACE "\r\n" "\n" transcript "${transcript}")
  string(REPLACE "\r\n" "\n" errors "${errors}")
  string(REPLACE "\\\\" "/" transcript "${transcript}")
  string(REPLACE "\\" "/" errors "${errors}")
  string(REPLACE "Z:/" "/" transcript "${transcript}")
  string(REPLACE "Z:/" "/" errors "${errors}")
endif()

# The paths that differ from one checkout to the next.
get_filename_component(bin ${DRIVER} DIRECTORY)
file(REAL_PATH ${WORK} real_work)
file(REAL_PATH ${bin} real_bin)
foreach(text transcript errors)
  foreach(pair "${real_work};<work>" "${WORK};<work>" "${real_bin};<bin>" "${bin};<bin>")
    list(GET pair 0 from)
    list(GET pair 1 to)
    string(REPLACE "${from}" "${to}" ${text} "${${text}}")
  endforeach()
endforeach()
file(WRITE ${WORK}/transcript.actual "${transcript}")

set(failures "")
set(expected "")
if(EXISTS ${SCENARIOS}/${NAME}.expected)
  file(READ ${SCENARIOS}/${NAME}.expected expected)
endif()
if(NOT transcript STREQUAL expected)
  execute_process(COMMAND diff -u ${SCENARIOS}/${NAME}.expected ${WORK}/transcript.actual
                  OUTPUT_VARIABLE difference)
  string(APPEND failures "the transcript differs from ${NAME}.expected:\n${difference}\n")
endif()

if(EXISTS ${SCENARIOS}/${NAME}.stderr)
  file(READ ${SCENARIOS}/${NAME}.stderr expected_errors)
  set(expected_status 2)
else()
  set(expected_errors "")
  set(expected_status 0)
endif()
if(NOT status STREQUAL expected_status)
  string(APPEND failures "exit status ${status}, expected ${expected_status}\n")
endif()
if(NOT errors STREQUAL expected_errors)
  string(APPEND failures "standard error:\n${errors}expected:\n${expected_errors}\n")
endif()

if(IS_DIRECTORY ${SCENARIOS}/${NAME}.output)
  file(GLOB_RECURSE outputs RELATIVE ${SCENARIOS}/${NAME}.output ${SCENARIOS}/${NAME}.output/*)
  foreach(output ${outputs})
    if(NOT EXISTS ${WORK}/${output})
      string(APPEND failures "${output} was not saved\n")
      continue()
    endif()
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${SCENARIOS}/${NAME}.output/${output} ${WORK}/${output}
                    RESULT_VARIABLE different)
    if(different)
      string(APPEND failures "${output} differs from ${NAME}.output/${output} (kept in ${WORK})\n")
    endif()
  endforeach()
endif()

if(failures)
  message(FATAL_ERROR "scenario ${NAME}:\n${failures}")
endif()
