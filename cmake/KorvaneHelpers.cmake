# The folders of the logic, lowest first. Each is one library that names the
# folders below it that it uses (korvane_add_layer in its CMakeLists.txt);
# korvane_logic links them all.
set(KORVANE_LOGIC_FOLDERS runtime text objectfile rewrite controls desktop advanced mainwindow shell)

# What differs per operating system lives in one file per system, named for
# it (file_posix.cpp, file_win32.cpp); the folders pick theirs by this name.
# Set here for every project that builds the logic (the fuzz targets too).
if(WIN32)
  set(KORVANE_SYSTEM win32)
  add_compile_definitions(WIN32_LEAN_AND_MEAN NOMINMAX UNICODE _UNICODE)
else()
  set(KORVANE_SYSTEM posix)
endif()

# korvane_add_layer(<folder> <sources...> [BELOW <folders...>])
# The folder's headers are reachable as "<folder>/name.h" only to the folder
# itself and to what links it: an include of a folder above, or of one not
# named, fails to compile.
function(korvane_add_layer folder)
  cmake_parse_arguments(ARG "" "" "BELOW" ${ARGN})
  set(target korvane_${folder})
  add_library(${target} STATIC ${ARG_UNPARSED_ARGUMENTS})
  set(root ${CMAKE_BINARY_DIR}/layers/${folder})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${folder} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${root})
  list(TRANSFORM ARG_BELOW PREPEND korvane_)
  target_link_libraries(${target} PUBLIC ${ARG_BELOW})
endfunction()

# The whole logic, for the front ends, the tests, the benchmark and the fuzz
# targets, which see every folder of src/ from its root.
function(korvane_add_logic source_dir)
  foreach(folder ${KORVANE_LOGIC_FOLDERS})
    add_subdirectory(${source_dir}/src/${folder} ${CMAKE_BINARY_DIR}/logic/${folder})
  endforeach()
  add_library(korvane_logic INTERFACE)
  list(TRANSFORM KORVANE_LOGIC_FOLDERS PREPEND korvane_ OUTPUT_VARIABLE layers)
  target_link_libraries(korvane_logic INTERFACE ${layers})
  target_include_directories(korvane_logic INTERFACE ${source_dir}/src)
endfunction()

# korvane_add_test(<name> <sources...> [LIBS <libs...>] [OWN_MAIN])
# One GoogleTest executable, registered with CTest test by test. OWN_MAIN: one
# of LIBS brings main() (the Qt tests make their QApplication there).
include(GoogleTest)
function(korvane_add_test name)
  cmake_parse_arguments(ARG "OWN_MAIN" "" "LIBS" ${ARGN})
  add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
  set(main GTest::gtest_main)
  if(ARG_OWN_MAIN)
    set(main)
  endif()
  target_link_libraries(${name} PRIVATE korvane_test_support korvane_logic ${main} ${ARG_LIBS})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()

# korvane_add_tests_in_folder([LIBS <libs...>] [OWN_MAIN] [EXCEPT <names...>])
# A test per *_test.cpp of the calling folder, named after the file; a
# *_posix_test.cpp or *_win32_test.cpp only on its own system.
function(korvane_add_tests_in_folder)
  cmake_parse_arguments(ARG "OWN_MAIN" "" "LIBS;EXCEPT" ${ARGN})
  set(own_main)
  if(ARG_OWN_MAIN)
    set(own_main OWN_MAIN)
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*_test.cpp)
  foreach(source ${sources})
    get_filename_component(name ${source} NAME_WE)
    if(name IN_LIST ARG_EXCEPT OR (name MATCHES "_(posix|win32)_test$" AND NOT name MATCHES "_${KORVANE_SYSTEM}_test$"))
      continue()
    endif()
    korvane_add_test(${name} ${source} LIBS ${ARG_LIBS} ${own_main})
  endforeach()
endfunction()
