# How a layer of the house becomes a build target.
#
# tabulon_layer(NAME LINK a b PRIVATE_LINK c) makes a static library of every source below the current
# folder. The folder itself is the layer's include root, handed on to those that link the layer: an
# include can reach a lower layer and never a higher one.
#
# tabulon_rooms(NAME ROOMS a b c LINK d) makes such a library, NAME_a and so on, of each of these folders of a
# layer, from the bottom to the top: each links those before it. Include paths of rooms begin at the layer, so
# that tests/tools/check_includes.py looks after their direction.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(tabulon_flags INTERFACE)
target_compile_options(tabulon_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlaps and overflows in inlined string operations where there are none. The sanitizers look
  # for real ones.
  target_compile_options(tabulon_flags INTERFACE -Wno-restrict -Wno-array-bounds -Wno-stringop-overflow
                         -Wno-stringop-overread)
endif()
# No function of the house is replaced at load time, so the compiler may see through its own calls.
target_compile_options(tabulon_flags INTERFACE -fno-semantic-interposition)
if(TABULON_WARNINGS_AS_ERRORS)
  target_compile_options(tabulon_flags INTERFACE -Werror)
endif()
if(TABULON_SANITIZE)
  target_compile_options(tabulon_flags INTERFACE -fsanitize=${TABULON_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(tabulon_flags INTERFACE -fsanitize=${TABULON_SANITIZE})
endif()
if(TABULON_BUILD_FUZZERS)
  target_compile_options(tabulon_flags INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(tabulon_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# What nearly every source includes, read once for each target. A source still names what it needs, since
# this is a matter of speed alone: -DTABULON_PRECOMPILED_HEADERS=OFF shows whether it does.
option(TABULON_PRECOMPILED_HEADERS "Read the standard library's headers once for each target" ON)
set(TABULON_STANDARD_HEADERS
    <algorithm> <array> <charconv> <cmath> <cstddef> <cstdint> <cstdio> <cstdlib> <cstring> <functional>
    <limits> <map> <memory> <mutex> <optional> <set> <span> <string> <string_view> <unordered_map>
    <unordered_set> <utility> <variant> <vector>)

function(tabulon_precompile_headers target)
  if(TABULON_PRECOMPILED_HEADERS)
    if(ARGV1 STREQUAL "REUSE_FROM")
      target_precompile_headers(${target} REUSE_FROM ${ARGV2})
    else()
      target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # Lets a compiler cache tell what stands behind the precompiled header.
      target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
  endif()
endfunction()

function(tabulon_rooms layer)
  cmake_parse_arguments(LAYER "" "" "ROOMS;LINK" ${ARGN})
  set(below ${LAYER_LINK})
  set(first "")
  foreach(room ${LAYER_ROOMS})
    set(name ${layer}_${room})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${room}/*.cpp)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${below} PRIVATE tabulon_flags)
    if(first)
      tabulon_precompile_headers(${name} REUSE_FROM ${first})
    else()
      tabulon_precompile_headers(${name} ${TABULON_STANDARD_HEADERS})
      set(first ${name})
    endif()
    set(below ${name})
  endforeach()
endfunction()

function(tabulon_layer name)
  cmake_parse_arguments(LAYER "" "" "LINK;PRIVATE_LINK" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${LAYER_LINK} PRIVATE tabulon_flags ${LAYER_PRIVATE_LINK})
  tabulon_precompile_headers(${name} ${TABULON_STANDARD_HEADERS})
endfunction()
