# One folder below src/ is one floor of the house and one library. A floor's headers are included as "floor/name.h" and
# are visible only to targets that link the floor: each floor has an include folder of its own that holds nothing but a
# link to the floor, so an include from a floor that isn't linked doesn't compile.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers are found by their content: the sources name neither dates nor times.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

add_library(zorlan_options INTERFACE)
# The order of arithmetic decides the last printed digit: no fused multiply-add, no reassociation, on any compiler.
# GCC 12 sees an overlap in "text" + std::string that isn't there: -Wno-restrict.
target_compile_options(zorlan_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
                       -Werror -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(zorlan_options INTERFACE -Wno-restrict)
endif()

# zorlan_floor(NAME [LINKS target...] [PRIVATE_LINKS target...]): the library zorlan_NAME of all sources in src/NAME. What is
# linked privately isn't seen by the floors above.
function(zorlan_floor name)
  cmake_parse_arguments(FLOOR "" "" "LINKS;PRIVATE_LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${name}/*.cpp)
  if(NOT sources)
    return()
  endif()
  set(include ${CMAKE_BINARY_DIR}/floors/${name})
  file(MAKE_DIRECTORY ${include})
  file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${name} ${include}/${name} SYMBOLIC)
  add_library(zorlan_${name} STATIC ${sources})
  target_include_directories(zorlan_${name} PUBLIC ${include})
  target_link_libraries(zorlan_${name} PUBLIC ${FLOOR_LINKS} PRIVATE zorlan_options ${FLOOR_PRIVATE_LINKS})
endfunction()

# zorlan_test(NAME [LINKS target...] [TIMEOUT seconds]): the program NAME_test of all *_test.cpp in tests/NAME, every test a
# ctest of its own that may take 120 seconds, or as long as it says.
function(zorlan_test name)
  cmake_parse_arguments(TEST "" "TIMEOUT" "LINKS" ${ARGN})
  if(NOT TEST_TIMEOUT)
    set(TEST_TIMEOUT 120)
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${name}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_test ${sources})
  target_include_directories(${name}_test PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(${name}_test PRIVATE ZORLAN_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  target_link_libraries(${name}_test PRIVATE ${TEST_LINKS} zorlan_options GTest::gmock GTest::gtest_main)
  # Most of a test's compilation are the test library's headers and templates: eight files share them. So names in the
  # unnamed namespaces of a folder's tests are told apart, and what two files need stands in tests/support.
  set_target_properties(${name}_test PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  # The tests' own code has nothing to gain from more; with the sanitizers -O1 would double its compile time.
  target_compile_options(${name}_test PRIVATE $<IF:$<CONFIG:Debug>,-O0,-O1>)
  include(GoogleTest)
  gtest_discover_tests(${name}_test TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${TEST_TIMEOUT})
endfunction()
