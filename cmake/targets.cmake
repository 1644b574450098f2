# How a library, a program, a test and a fuzz target of this project are made.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_VERIFY_INTERFACE_HEADER_SETS ON)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

# An unpacked package on Windows shows its programs and documents at once; elsewhere things go where they always go.
if(WIN32)
  set(CMAKE_INSTALL_BINDIR . CACHE PATH "Programs and their files")
  set(CMAKE_INSTALL_DOCDIR . CACHE PATH "Documents")
endif()
include(GNUInstallDirs)

set(wi_warnings
    -Wall -Wextra -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wcast-qual
    -Wformat=2 -Wundef -Wimplicit-fallthrough -Wnon-virtual-dtor)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # -Wrestrict of GCC 12 takes fright at text + std::string.
  list(APPEND wi_warnings -Wduplicated-cond -Wlogical-op -Wno-restrict)
endif()

if(WIN32)
  # One executable that needs no DLL beyond Windows' own, without what it does not use.
  # Without -fdata-sections, under which this compiler stores zeroed tables in the file.
  add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-ffunction-sections>)
  add_link_options(-static -Wl,--gc-sections)
  if(CMAKE_BUILD_TYPE STREQUAL "Release")
    add_link_options(-s)
  endif()
endif()

# What every target of ours is compiled with.
function(wi_compile_options target)
  target_compile_options(${target} PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:${wi_warnings}>")
endfunction()

# wi_library(NAME SOURCES ... HEADERS ... [LINKS ...])
# A static library of libsrc/<folder>, included as "<folder>/<header>"; HEADERS are the public ones.
function(wi_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;HEADERS;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  add_library(wi::${name} ALIAS ${name})
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/libsrc FILES ${arg_HEADERS})
  target_link_libraries(${name} PUBLIC ${arg_LINKS})
  target_compile_features(${name} PUBLIC cxx_std_20)
  wi_compile_options(${name})
  install(TARGETS ${name} EXPORT wi ARCHIVE COMPONENT libraries FILE_SET HEADERS COMPONENT libraries)
endfunction()

# wi_program(NAME DESCRIPTION ... SOURCES ... [LINKS ...])
# A program of exesrc/<NAME>, installed; Windows shows the description, and its version.
function(wi_program name)
  cmake_parse_arguments(arg "" "DESCRIPTION" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  if(WIN32)
    configure_file(${PROJECT_SOURCE_DIR}/exesrc/program.rc.in ${name}_program.rc @ONLY)
    target_sources(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}_program.rc)
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${name}_program.rc
      PROPERTIES OBJECT_DEPENDS ${PROJECT_SOURCE_DIR}/exesrc/program.manifest)
  endif()
  target_link_libraries(${name} PRIVATE ${arg_LINKS})
  wi_compile_options(${name})
  install(TARGETS ${name} RUNTIME COMPONENT programs)
endfunction()

# wi_test(NAME SOURCES ... [LINKS ...])   A GoogleTest program; one CTest test that runs it whole.
function(wi_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${arg_LINKS} gtest)
  wi_compile_options(${name})
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# wi_fuzz(NAME SOURCE [LINKS...])   A libFuzzer target; its seeds are in fuzz/corpus/<NAME>. As a CTest test it runs
# for some seconds.
function(wi_fuzz name source)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE ${ARGN})
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  wi_compile_options(${name})
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/cmake/fuzz-run $<TARGET_FILE:${name}>)
endfunction()
