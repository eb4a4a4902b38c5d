# A module is one folder, one static library, and the libraries that it may see.

set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(quorvel_options INTERFACE)
target_compile_options(
  quorvel_options
  INTERFACE -Wall
            -Wextra
            -Wshadow
            -Wnon-virtual-dtor
            -Wconversion
            -Wno-sign-conversion
            -Wno-missing-field-initializers
            -fno-omit-frame-pointer)
# Under its sanitizers GCC takes optionals and regular expressions for uninitialised.
if(CMAKE_CXX_FLAGS MATCHES "-fsanitize" AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(quorvel_options INTERFACE -Wno-maybe-uninitialized)
endif()

# quorvel_module(NAME INCLUDE_ROOT dir FOLDER dir FOLDERS dirs... SEES targets... USES libraries... WITHOUT sources...): the
# sources of FOLDER (the current one) and of its FOLDERS, but for those that another target has; SEES are public, USES
# private.
function(quorvel_module name)
  cmake_parse_arguments(MODULE "" "INCLUDE_ROOT;FOLDER" "FOLDERS;SEES;USES;WITHOUT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${MODULE_FOLDER}/*.cpp)
  foreach(folder IN LISTS MODULE_FOLDERS)
    file(GLOB inner CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
    list(APPEND sources ${inner})
  endforeach()
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  list(TRANSFORM MODULE_WITHOUT PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  list(REMOVE_ITEM sources ${MODULE_WITHOUT})
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${MODULE_INCLUDE_ROOT})
  target_link_libraries(
    ${name}
    PUBLIC ${MODULE_SEES}
    PRIVATE quorvel_options ${MODULE_USES})
endfunction()

# quorvel_tests(NAME FOLDERS dirs... SEES targets...): one GoogleTest program from the sources of the folder and of its
# FOLDERS.
function(quorvel_tests name)
  cmake_parse_arguments(TESTS "" "" "FOLDERS;SEES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  foreach(folder IN LISTS TESTS_FOLDERS)
    file(GLOB inner CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
    list(APPEND sources ${inner})
  endforeach()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE quorvel_options ${TESTS_SEES} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  target_compile_definitions(${name} PRIVATE QUORVEL_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                                             QUORVEL_BINARY_DIR="${CMAKE_BINARY_DIR}")
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120)
endfunction()

# quorvel_runs_programs(NAME): the tests start the built programs, which must be there and new.
function(quorvel_runs_programs name)
  add_dependencies(${name} quorvel-host quorvel-hostd quorvel-watch quorvel-widgets quorvel-import)
endfunction()

# quorvel_must_not_compile(names...): each source compiles, and with its mistake it does not.
function(quorvel_must_not_compile)
  foreach(name IN LISTS ARGN)
    set(compile
        ${CMAKE_CXX_COMPILER}
        -std=c++${CMAKE_CXX_STANDARD}
        -fsyntax-only
        -I${CMAKE_SOURCE_DIR}
        -I${CMAKE_SOURCE_DIR}/Platform
        ${CMAKE_CURRENT_SOURCE_DIR}/MustNotCompile/${name}.cpp)
    add_test(NAME Compiles.${name} COMMAND ${compile})
    add_test(NAME MustNotCompile.${name} COMMAND ${compile} -DQUORVEL_MISTAKE)
    set_tests_properties(MustNotCompile.${name} PROPERTIES WILL_FAIL TRUE)
  endforeach()
endfunction()
