# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Warnings are errors in every target of the house.
add_library(kelmar_options INTERFACE)
target_compile_options(kelmar_options INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # The optimiser of this version sees overlaps in std::string that are none.
  target_compile_options(kelmar_options INTERFACE -Wno-restrict)
endif()
target_include_directories(kelmar_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(KELMAR_SANITIZE)
  target_compile_options(kelmar_options INTERFACE -fsanitize=address,undefined
                                                  -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kelmar_options INTERFACE -fsanitize=address,undefined)
endif()
if(KELMAR_FUZZ)
  target_compile_options(kelmar_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# kelmar_room(name [QT] [SOURCES ...] DEPENDS ...)
#
# One room of the house: a static library of all sources in its folder, or of those named. A room
# links only what DEPENDS names, and only a QT room sees Qt, so an arrow that is not allowed does
# not compile.
function(kelmar_room name)
  cmake_parse_arguments(ROOM "QT" "" "SOURCES;DEPENDS" ${ARGN})
  if(NOT ROOM_SOURCES)
    file(GLOB ROOM_SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp
         ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  endif()
  if(NOT ROOM_SOURCES)
    add_library(kelmar_${name} INTERFACE) # an empty room
    return()
  endif()
  add_library(kelmar_${name} STATIC ${ROOM_SOURCES})
  set_target_properties(kelmar_${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(kelmar_${name} PUBLIC kelmar_options)
  foreach(dependency IN LISTS ROOM_DEPENDS)
    if(TARGET kelmar_${dependency})
      target_link_libraries(kelmar_${name} PUBLIC kelmar_${dependency})
    else()
      target_link_libraries(kelmar_${name} PUBLIC ${dependency})
    endif()
  endforeach()
  if(ROOM_QT)
    set_target_properties(kelmar_${name} PROPERTIES AUTOMOC ON)
  endif()
endfunction()

# kelmar_tests(name [QT] DEPENDS ...)
#
# The tests of one room: every test_*.cpp of the folder in one executable, run by ctest as one
# test whose results are counted from its report.
function(kelmar_tests name)
  cmake_parse_arguments(TESTS "QT" "TIMEOUT" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/test_*.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(test_${name} ${sources})
  foreach(dependency IN LISTS TESTS_DEPENDS)
    if(TARGET kelmar_${dependency})
      target_link_libraries(test_${name} PRIVATE kelmar_${dependency})
    else()
      target_link_libraries(test_${name} PRIVATE ${dependency})
    endif()
  endforeach()
  target_link_libraries(test_${name} PRIVATE kelmar_options GTest::gtest GTest::gmock)
  if(KELMAR_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # With the sanitizers' code in it, the compiler takes std::regex for uninitialised.
    target_compile_options(test_${name} PRIVATE -Wno-maybe-uninitialized)
  endif()
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(
    test_${name} PRIVATE KELMAR_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
                         KELMAR_SITE="${PROJECT_SOURCE_DIR}/site"
                         KELMAR_SOURCE="${PROJECT_SOURCE_DIR}"
                         KELMAR_BINARY_DIR="${PROJECT_BINARY_DIR}")
  if(TESTS_QT)
    set_target_properties(test_${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(test_${name} PRIVATE Qt6::Test)
  else()
    target_link_libraries(test_${name} PRIVATE GTest::gtest_main)
  endif()
  if(NOT TESTS_TIMEOUT)
    set(TESTS_TIMEOUT 300)
  endif()
  add_test(NAME ${name} COMMAND test_${name}
           --gtest_output=json:${PROJECT_BINARY_DIR}/test-reports/${name}.json)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${TESTS_TIMEOUT})
endfunction()
