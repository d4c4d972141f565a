# korvane_add_test(<name> <sources...> [LIBS <libs...>])
# One GoogleTest executable, registered with CTest test by test.
include(GoogleTest)
function(korvane_add_test name)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE korvane_test_support korvane_logic GTest::gtest_main ${ARG_LIBS})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
