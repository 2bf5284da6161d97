# All targets of the project share this: the language, the warnings, the sanitizers, and one short function a kind of target.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported() # A program lies anywhere in memory, also where that is not the compiler's own habit.

set(PALOMET_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")
option(PALOMET_FUZZ "Build the fuzz targets instead of the program" OFF)

find_program(CCACHE ccache)
if(CCACHE)
  # Without this leave it keeps nothing of what is compiled with a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

# palomet_compact(): what is compiled below this folder is made small: it waits for people and services, not for its loops.
macro(palomet_compact)
  add_compile_options($<$<CONFIG:Release>:-Os>)
endmacro()

add_library(palomet-options INTERFACE)
target_include_directories(palomet-options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(palomet-options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
# A warning is an error with the compilers that the project is checked with; a later one has warnings, and false ones, of its
# own.
set(strict "")
if((CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13) OR
   (CMAKE_CXX_COMPILER_ID STREQUAL Clang AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15))
  set(strict -Werror -Wno-error=null-dereference)
endif()
# No fused multiply-add: the samples sent must be the same on every processor.
target_compile_options(palomet-options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wnull-dereference
  ${strict} -ffp-contract=off -ffunction-sections -fdata-sections)
# Relocations that only add the load address are packed: they were a thirtieth of the program.
target_link_options(palomet-options INTERFACE
  -Wl,--gc-sections -Wl,--as-needed -Wl,-z,pack-relative-relocs)
# Shipped programs make it hard to use a mistake: buffers and stacks are checked, jumps go where they may, and all that is
# linked is bound at the start and read-only from then on.
add_library(palomet-hardening INTERFACE)
if(CMAKE_BUILD_TYPE STREQUAL Release AND NOT PALOMET_SANITIZE)
  target_compile_options(palomet-hardening INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|amd64|AMD64|i.86)$")
    target_compile_options(palomet-hardening INTERFACE -fcf-protection)
  endif()
  target_link_options(palomet-hardening INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()
if(PALOMET_SANITIZE)
  # What a sanitizer adds hides from this warning that a variable was set; the other presets have it.
  target_compile_options(palomet-options INTERFACE -Wno-maybe-uninitialized)
  target_compile_options(palomet-options INTERFACE -fsanitize=${PALOMET_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(palomet-options INTERFACE -fsanitize=${PALOMET_SANITIZE})
endif()
if(PALOMET_FUZZ)
  target_compile_options(palomet-options INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  target_link_options(palomet-options INTERFACE -fsanitize=address,undefined)
endif()

# QML is turned into byte code by the build, which loads as fast as C++ would and is far smaller; under a sanitizer by the
# program itself, for the hundred sources that hold the byte code take longer to compile than everything else.
set(PALOMET_QML_CACHE "")
if(PALOMET_SANITIZE)
  set(PALOMET_QML_CACHE NO_CACHEGEN)
endif()

# palomet_merge_byte_code(TARGET): compiles the byte code of all QML of a target at once; one by one, each would cost the
# seconds that Qt's headers take.
function(palomet_merge_byte_code target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "/qmlcache/")
  set_source_files_properties(${sources} PROPERTIES UNITY_GROUP byte-code)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()

# palomet_library(NAME SOURCES a.cpp … [PUBLIC libraries …] [PRIVATE libraries …]): one static library a folder.
function(palomet_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC palomet-options ${arg_PUBLIC} PRIVATE palomet-hardening ${arg_PRIVATE})
endfunction()
