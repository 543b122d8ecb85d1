# One room of the house: a static library named after its folder under src/.
#
#   quelmont_room(NAME FLOOR n
#                 HEADERS a.h ...      # public headers, each of which must compile alone
#                 SOURCES a.cpp ...    # listed by hand: a new file is a decision
#                 ROOMS core ...       # the rooms below that it may include from
#                 LIBRARIES Qt6::Gui ...)
#
# A room without sources is an interface library. What each room declared is collected and written
# to rooms.txt in the build folder, where the test of the walls reads it.

set(QUELMONT_FLAGS
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
    # The order of floating-point operations is part of a formula; errno is never read after a
    # mathematical function, and without it lrint and sqrt are single instructions.
    -ffp-contract=off -fno-math-errno)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 reports an impossible overlap inside std::string's own operator+ (GCC bug 105651).
  list(APPEND QUELMONT_FLAGS -Wno-restrict)
endif()
if(QUELMONT_SANITIZE)
  list(APPEND QUELMONT_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(QUELMONT_COVERAGE)
  list(APPEND QUELMONT_FLAGS --coverage)
  add_link_options(--coverage)
endif()
if(QUELMONT_FUZZ)
  list(APPEND QUELMONT_FLAGS -fsanitize=fuzzer-no-link)
endif()

function(quelmont_room name)
  cmake_parse_arguments(ROOM "" "FLOOR" "HEADERS;SOURCES;ROOMS;LIBRARIES" ${ARGN})
  if(ROOM_SOURCES)
    add_library(${name} STATIC ${ROOM_SOURCES})
    set(scope PUBLIC)
    target_compile_options(${name} PRIVATE ${QUELMONT_FLAGS})
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_sources(${name} ${scope} FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR}/src FILES ${ROOM_HEADERS})
  set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  target_include_directories(${name} ${scope} ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} ${scope} ${ROOM_ROOMS} ${ROOM_LIBRARIES})
  string(REPLACE ";" "," rooms "${ROOM_ROOMS}")
  set_property(GLOBAL APPEND PROPERTY QUELMONT_ROOMS "${name} ${ROOM_FLOOR} ${rooms}")
endfunction()

function(write_rooms)
  get_property(rooms GLOBAL PROPERTY QUELMONT_ROOMS)
  list(JOIN rooms "\n" text)
  file(WRITE ${CMAKE_BINARY_DIR}/rooms.txt "${text}\n")
endfunction()

# The tests of one room: a program that links that room alone, so that a call which the room did
# not declare does not link.
function(quelmont_test name)
  cmake_parse_arguments(TEST "" "TIMEOUT" "SOURCES;ROOMS;LIBRARIES" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_compile_options(${name} PRIVATE ${QUELMONT_FLAGS})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${TEST_ROOMS} ${TEST_LIBRARIES} GTest::gmock GTest::gtest_main)
  list(LENGTH TEST_SOURCES sources)
  if(sources GREATER 2)
    # Reading the test framework takes longer than most of the tests' own code.
    target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # From a precompiled header g++ 12 no longer knows std::string for a system header's, and
      # reports its bug 105329 there.
      target_compile_options(${name} PRIVATE -Wno-array-bounds -Wno-stringop-overflow)
    endif()
  endif()
  if(NOT TEST_TIMEOUT)
    set(TEST_TIMEOUT 300)
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${TEST_TIMEOUT})
endfunction()
