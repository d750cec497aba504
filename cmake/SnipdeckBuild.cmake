# How every target of the project is compiled, and the functions that declare a library and a test.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

option(SNIPDECK_TESTS "Build the tests" ON)
option(SNIPDECK_WERROR "Treat warnings as errors" OFF)
option(SNIPDECK_FUZZ "Build the fuzz targets with libFuzzer (clang only)" OFF)
set(SNIPDECK_SANITIZE "" CACHE STRING "Sanitizers for all targets, as in -fsanitize=")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers and ccache agree only with these settings.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
      "CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime" "${CCACHE_PROGRAM}")
endif()

add_library(snipdeck_options INTERFACE)
target_compile_options(snipdeck_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
  -Woverloaded-virtual $<$<BOOL:${SNIPDECK_WERROR}>:-Werror>)
target_compile_definitions(snipdeck_options INTERFACE QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(snipdeck_options INTERFACE -fpch-preprocess)
endif()
if(SNIPDECK_SANITIZE)
  target_compile_options(snipdeck_options INTERFACE "-fsanitize=${SNIPDECK_SANITIZE}" -fno-omit-frame-pointer)
  target_link_options(snipdeck_options INTERFACE "-fsanitize=${SNIPDECK_SANITIZE}")
endif()
if(SNIPDECK_FUZZ)
  target_compile_options(snipdeck_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Two precompiled headers: without and with widgets. Every target reuses one of them.
function(snipdeck_precompiled target header)
  file(WRITE "${CMAKE_BINARY_DIR}/${target}.cpp" "// Only here so that the precompiled header has an owner.\n")
  add_library(${target} OBJECT "${CMAKE_BINARY_DIR}/${target}.cpp")
  target_link_libraries(${target} PUBLIC snipdeck_options ${ARGN})
  target_precompile_headers(${target} PRIVATE "${CMAKE_SOURCE_DIR}/cmake/${header}")
  set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTORCC OFF POSITION_INDEPENDENT_CODE ON)
endfunction()
snipdeck_precompiled(snipdeck_pch_gui pch_gui.h Qt6::Gui)
snipdeck_precompiled(snipdeck_pch_widgets pch_widgets.h Qt6::Widgets)

function(snipdeck_common target pch)
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_include_directories(${target} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  target_precompile_headers(${target} REUSE_FROM ${pch})
endfunction()

# snipdeck_library(name [GUI_ONLY] SOURCES files... LINKS libraries...): one static library a folder.
function(snipdeck_library name)
  cmake_parse_arguments(arg "GUI_ONLY" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  if(arg_GUI_ONLY)
    target_link_libraries(${name} PUBLIC snipdeck_options Qt6::Gui ${arg_LINKS})
    snipdeck_common(${name} snipdeck_pch_gui)
  else()
    target_link_libraries(${name} PUBLIC snipdeck_options Qt6::Widgets ${arg_LINKS})
    snipdeck_common(${name} snipdeck_pch_widgets)
  endif()
endfunction()

# snipdeck_test(name SOURCES files... LINKS libraries... [ON_DISPLAY] [TIMEOUT seconds] [LABELS labels...]): a Qt Test program.
# It runs on the offscreen platform unless ON_DISPLAY asks for the X server that DISPLAY names.
function(snipdeck_test name)
  cmake_parse_arguments(arg "ON_DISPLAY" "TIMEOUT" "SOURCES;LINKS;LABELS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE snipdeck_options Qt6::Widgets Qt6::Test ${arg_LINKS})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE SNIPDECK_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_precompile_headers(${name} REUSE_FROM snipdeck_pch_widgets)
  add_test(NAME ${name} COMMAND ${name})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 60)
  endif()
  set(environment "QT_FORCE_STDERR_LOGGING=1")
  if(NOT arg_ON_DISPLAY)
    list(APPEND environment "QT_QPA_PLATFORM=offscreen")
  else()
    # There is one clipboard on a display.
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK x11_clipboard)
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT} ENVIRONMENT "${environment}" LABELS "${arg_LABELS}")
endfunction()
