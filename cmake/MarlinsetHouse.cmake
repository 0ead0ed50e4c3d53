# SPDX-License-Identifier: GPL-3.0-or-later
# How to build a room: a static library whose folder path is its include path, and which links only what it may use.

add_library(marlinset_flags INTERFACE)
target_compile_options(marlinset_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# In optimised code, GCC 12 warns of its own std::string and std::vector that insertions copy overlapping memory or
# reach beyond their array, and of std::variant that alternatives are read before they are set. The sanitizers watch
# over these copies.
target_compile_options(marlinset_flags INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-array-bounds;-Wno-stringop-overflow;-Wno-stringop-overread>
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-maybe-uninitialized>)
# Where several files are compiled as one, GCC takes what they keep to themselves for the content of headers.
target_compile_options(marlinset_flags INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wno-subobject-linkage>)
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

# A precompiled header changes with its time stamp, which does not depend on its content.
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

# Headers that nearly every file includes are compiled once for all rooms. Each file must still include what it uses:
# tools/lint reads each file alone and without precompiled headers.
set(MARLINSET_COMMON_HEADERS <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <span> <string> <string_view>
                             <utility> <variant> <vector>)

# marlinset_room(NAME FOLDER USES...): compiles every .cpp of FOLDER (not of its subfolders) into the static library
# NAME.
function(marlinset_room name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp)
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC marlinset_flags ${ARGN})
    if(name STREQUAL base)
      target_precompile_headers(base PRIVATE ${MARLINSET_COMMON_HEADERS})
    elseif(NOT "${ARGN}" MATCHES Qt6)  # Qt adds flags of its own
      target_precompile_headers(${name} REUSE_FROM base)
    endif()
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE marlinset_flags ${ARGN})
  endif()
endfunction()
