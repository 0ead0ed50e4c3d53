# SPDX-License-Identifier: GPL-3.0-or-later
# How a room of the house is built: one static library, its folder path is its include path, and it links only what it may use.

add_library(marlinset_flags INTERFACE)
target_compile_options(marlinset_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# In optimised code GCC 12 takes the insertions of its own std::string and std::vector for copies that overlap or
# reach beyond their array, and the alternatives of a std::variant for read before they are set. The
# sanitizers watch over the copies.
target_compile_options(marlinset_flags INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-array-bounds;-Wno-stringop-overflow;-Wno-stringop-overread>
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-maybe-uninitialized>)
target_include_directories(marlinset_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_definitions(marlinset_flags INTERFACE MARLINSET_VERSION="${PROJECT_VERSION}")
if(MARLINSET_SANITIZE OR MARLINSET_FUZZ)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(MARLINSET_FUZZ)
  add_compile_options(-O1 -fsanitize=fuzzer-no-link)
endif()
if(MARLINSET_HARDEN)
  add_compile_definitions(_FORTIFY_SOURCE=2 _GLIBCXX_ASSERTIONS)
  add_compile_options(-fstack-protector-strong -fstack-clash-protection)
  add_link_options(-Wl,-z,relro,-z,now -pie)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
endif()
if(MARLINSET_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()

# A precompiled header changes with its time stamp, which says nothing about what is in it.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

# What nearly every file includes is compiled once for all rooms; each file still includes what it uses, as builds
# without precompiled headers (preset asan) show.
set(MARLINSET_COMMON_HEADERS <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <span> <string> <string_view>
                             <utility> <variant> <vector>)

# marlinset_room(NAME FOLDER USES...): every .cpp of FOLDER (not of its sub folders) becomes the static library NAME.
function(marlinset_room name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp)
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC marlinset_flags ${ARGN})
    if(name STREQUAL base)
      target_precompile_headers(base PRIVATE ${MARLINSET_COMMON_HEADERS})
    elseif(NOT "${ARGN}" MATCHES Qt6)  # which comes with flags of its own
      target_precompile_headers(${name} REUSE_FROM base)
    endif()
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE marlinset_flags ${ARGN})
  endif()
endfunction()
