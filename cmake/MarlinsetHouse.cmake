# SPDX-License-Identifier: GPL-3.0-or-later
# How a room of the house is built: one static library, its folder path is its include path, and it links only what it may use.

add_library(marlinset_flags INTERFACE)
target_compile_options(marlinset_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# In optimised code GCC 12 takes the insertions of its own std::string and std::vector for copies that overlap or
# reach beyond their array, and the alternatives of a std::variant for read before they are set. The
# sanitizers watch over the copies.
target_compile_options(marlinset_flags INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-array-bounds;-Wno-stringop-overflow;-Wno-stringop-overread>
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-maybe-uninitialized>)
target_include_directories(marlinset_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_definitions(marlinset_flags INTERFACE MARLINSET_VERSION="${PROJECT_VERSION}")
if(MARLINSET_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

# marlinset_room(NAME FOLDER USES...): every .cpp of FOLDER (not of its sub folders) becomes the static library NAME;
# link/frame.cpp is a library of its own.
function(marlinset_room name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/link/frame\\.cpp$")
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC marlinset_flags ${ARGN})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE marlinset_flags ${ARGN})
  endif()
endfunction()
