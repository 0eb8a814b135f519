# What every target of the project has in common: language level, warnings, assertions, sanitizers, output folders.
include_guard(GLOBAL)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

find_program(LORVANE_CCACHE ccache)
if(LORVANE_CCACHE AND PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${LORVANE_CCACHE}")
endif()
if(PROJECT_IS_TOP_LEVEL)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
endif()

set(LORVANE_BIN_DIR "${PROJECT_BINARY_DIR}/bin")
set(LORVANE_LIB_DIR "${PROJECT_BINARY_DIR}/lib")
# ZltApi looks for providers here: a folder beside its own library.
set(LORVANE_PROVIDER_DIR "${LORVANE_LIB_DIR}/zlt-providers")

add_library(LorvaneOptions INTERFACE)
target_compile_features(LorvaneOptions INTERFACE cxx_std_17)
target_compile_options(LorvaneOptions INTERFACE
  -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor -Werror
  # The four camera-side interfaces have no virtual destructor on purpose: shared pointers remember the concrete type.
  -Wno-non-virtual-dtor -Wno-delete-non-virtual-dtor
  # Assertions guard bytes that go into a camera: they stay active in release builds.
  -UNDEBUG
  -fno-omit-frame-pointer)
target_compile_definitions(LorvaneOptions INTERFACE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_FOREACH)

if(LORVANE_SANITIZE STREQUAL "address")
  target_compile_options(LorvaneOptions INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all)
  target_link_options(LorvaneOptions INTERFACE -fsanitize=address,undefined)
elseif(LORVANE_SANITIZE STREQUAL "thread")
  target_compile_options(LorvaneOptions INTERFACE -fsanitize=thread)
  target_link_options(LorvaneOptions INTERFACE -fsanitize=thread)
elseif(LORVANE_SANITIZE)
  message(FATAL_ERROR "LORVANE_SANITIZE must be empty, address or thread, not '${LORVANE_SANITIZE}'.")
endif()

# lorvane_library(NAME [SHARED|STATIC|MODULE] SOURCES ...)
function(lorvane_library name kind)
  cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
  add_library(${name} ${kind} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE LorvaneOptions)
  set_target_properties(${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    LIBRARY_OUTPUT_DIRECTORY "${LORVANE_LIB_DIR}")
endfunction()

# lorvane_provider(NAME SOURCES ...): a camera provider. It stands in a folder of its own, for tests that want no other,
# and from there in the one folder where programs look for providers.
function(lorvane_provider name)
  cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
  lorvane_library(${name} MODULE SOURCES ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES LIBRARY_OUTPUT_DIRECTORY "${LORVANE_LIB_DIR}/${name}")
  add_custom_command(TARGET ${name} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E make_directory "${LORVANE_PROVIDER_DIR}"
    COMMAND ${CMAKE_COMMAND} -E create_symlink "$<TARGET_FILE:${name}>"
      "${LORVANE_PROVIDER_DIR}/$<TARGET_FILE_NAME:${name}>")
endfunction()

# lorvane_program(NAME SOURCES ...)
function(lorvane_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE LorvaneOptions)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${LORVANE_BIN_DIR}")
endfunction()

# lorvane_test(NAME [WIDGETS] SOURCES ... LIBRARIES ... [PROPERTIES ...])
# WIDGETS: the tests run inside a QApplication with the program's resources.
function(lorvane_test name)
  cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LIBRARIES;PROPERTIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  if(ARG_WIDGETS)
    list(APPEND ARG_LIBRARIES WidgetTest)
  else()
    list(APPEND ARG_LIBRARIES GTest::gtest_main)
  endif()
  target_link_libraries(${name} PRIVATE LorvaneOptions ${ARG_LIBRARIES} GTest::gmock GTest::gtest)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300 ${ARG_PROPERTIES})
endfunction()

# Adds a target to a collective one, so that a check builds no more than it runs.
function(lorvane_collect collection name)
  if(NOT TARGET ${collection})
    add_custom_target(${collection})
  endif()
  add_dependencies(${collection} ${name})
endfunction()

# lorvane_benchmark(NAME SOURCES ... LIBRARIES ...)
function(lorvane_benchmark name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE LorvaneOptions ${ARG_LIBRARIES} benchmark::benchmark benchmark::benchmark_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/benchmarks")
  lorvane_collect(benchmarks ${name})
endfunction()

# lorvane_fuzzer(NAME SOURCES ... LIBRARIES ...): one libFuzzer target; the whole build then runs under -fsanitize=fuzzer-no-link.
function(lorvane_fuzzer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE LorvaneOptions ${ARG_LIBRARIES})
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/fuzz")
  lorvane_collect(fuzzers ${name})
endfunction()

if(LORVANE_BUILD_FUZZERS)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "The fuzz targets need Clang: configure with -DCMAKE_CXX_COMPILER=clang++.")
  endif()
  target_compile_options(LorvaneOptions INTERFACE -fsanitize=fuzzer-no-link)
endif()
