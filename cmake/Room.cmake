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
# For the rooms that every point of a map passes. Their routines hand a point on in fields of the one record;
# two fields that were just written one by one and are read as a pair let the processor wait until both have
# left its store buffer, which costs more than the pair saves.
set(QUELMONT_POINT_FLAGS -fno-tree-slp-vectorize)
if(QUELMONT_SANITIZE)
  list(APPEND QUELMONT_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(QUELMONT_THREADS)
  list(APPEND QUELMONT_FLAGS -fsanitize=thread)
  add_link_options(-fsanitize=thread)
endif()
if(NOT QUELMONT_SANITIZE AND NOT QUELMONT_THREADS AND NOT QUELMONT_COVERAGE)
  # Programs read files from anywhere: what overruns a buffer ends the program, and finds nothing at a
  # known address. (The sanitizers watch more closely, and not together with these.)
  list(APPEND QUELMONT_FLAGS -fstack-protector-strong -fPIE
       $<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE>
       $<$<CONFIG:Release,RelWithDebInfo>:-D_FORTIFY_SOURCE=2>)
  add_link_options(-pie -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
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

# A program: its sources, and the libraries that it is made of.
function(quelmont_program name)
  cmake_parse_arguments(PROGRAM "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${PROGRAM_SOURCES})
  target_compile_options(${name} PRIVATE ${QUELMONT_FLAGS})
  target_link_libraries(${name} PRIVATE ${PROGRAM_LIBRARIES})
  if(QUELMONT_SANITIZE)
    target_sources(${name} PRIVATE $<TARGET_OBJECTS:sanitizer_status>)
  endif()
endfunction()

# Under the sanitizers every program ends with a status of its own when they find something.
if(QUELMONT_SANITIZE)
  add_library(sanitizer_status OBJECT ${CMAKE_CURRENT_LIST_DIR}/sanitizer_status.cpp)
  target_compile_options(sanitizer_status PRIVATE ${QUELMONT_FLAGS})
endif()

# Qt asks for -fPIC, and a precompiled header serves only what is compiled alike.
set(QUELMONT_TEST_FLAGS -fPIC)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # From a precompiled header g++ 12 no longer knows std::string for a system header's, and reports its
  # bug 105329 there.
  list(APPEND QUELMONT_TEST_FLAGS -O1 -Wno-array-bounds -Wno-stringop-overflow)
else()
  # ccache keeps what was compiled with a precompiled header only where that header has no time in it.
  list(APPEND QUELMONT_TEST_FLAGS "SHELL:-Xclang -fno-pch-timestamp")
endif()
if(QUELMONT_SANITIZE)
  # The rooms are what the sanitizers watch and the fuzzers follow. Instrumenting and optimising the tests'
  # own code took three quarters of the time of a whole build with them: addresses are checked in it too.
  list(APPEND QUELMONT_TEST_FLAGS -O0 -fno-sanitize=undefined)
endif()
if(QUELMONT_FUZZ)
  list(APPEND QUELMONT_TEST_FLAGS -fno-sanitize=fuzzer-no-link)
endif()

# A program of tests. Reading the test framework takes longer than most of the tests' own code: it is
# read once for all programs. Optimising the tests would take longer than it saves.
function(quelmont_test_program name)
  cmake_parse_arguments(TEST "" "" "SOURCES;LIBRARIES" ${ARGN})
  quelmont_program(${name} SOURCES ${TEST_SOURCES} LIBRARIES ${TEST_LIBRARIES} GTest::gmock)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_options(${name} PRIVATE ${QUELMONT_TEST_FLAGS})
  target_precompile_headers(${name} REUSE_FROM test_headers)
endfunction()

# The state of a room that keeps one: fresh_NAME.cpp in the folder of its tests names the room's reset to
# the tests' FreshProgram, in every test program that links the room.
function(quelmont_fresh_room name)
  add_library(fresh_${name} OBJECT fresh_${name}.cpp)
  target_compile_options(fresh_${name} PRIVATE ${QUELMONT_FLAGS})
  target_link_libraries(fresh_${name} PRIVATE ${name} test_support)
endfunction()

# Links what quelmont_fresh_room made of the rooms given and of those below them.
function(link_fresh_rooms target)
  get_property(records GLOBAL PROPERTY QUELMONT_ROOMS)
  set(rooms ${ARGN})
  foreach(record ${records})
    string(REGEX MATCH "^([a-z]+) [0-9]+ ?(.*)$" matched "${record}")
    if(CMAKE_MATCH_1 IN_LIST ARGN)
      string(REPLACE "," ";" below "${CMAKE_MATCH_2}")
      list(APPEND rooms ${below})
    endif()
  endforeach()
  list(REMOVE_DUPLICATES rooms)
  foreach(room ${rooms})
    if(TARGET fresh_${room})
      target_link_libraries(${target} PRIVATE fresh_${room})
    endif()
  endforeach()
endfunction()

# The tests of one room: a program that links that room alone, so that a call which the room did
# not declare does not link.
function(quelmont_test name)
  cmake_parse_arguments(TEST "" "TIMEOUT" "SOURCES;ROOMS;LIBRARIES" ${ARGN})
  quelmont_test_program(${name}
    SOURCES ${TEST_SOURCES}
    LIBRARIES ${TEST_ROOMS} ${TEST_LIBRARIES} GTest::gtest_main)
  link_fresh_rooms(${name} ${TEST_ROOMS})
  if(NOT TEST_TIMEOUT)
    set(TEST_TIMEOUT 300)
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${TEST_TIMEOUT})
endfunction()
