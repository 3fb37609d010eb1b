# Helpers for targets made of "whatever is in these folders", and the options that all of our
# own code is compiled with. Third-party code (GoogleTest) does not get them.

add_library(korvel_options INTERFACE)
target_compile_options(korvel_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror $<$<COMPILE_LANGUAGE:CXX>:-Wconversion -Wshadow>)
target_include_directories(korvel_options INTERFACE
  ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/include)
if(WIN32)
  target_compile_definitions(korvel_options INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
  # As on 64 bits: the older floating-point unit rounds differently, and the picture of a scene must
  # not depend on that.
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_options(korvel_options INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()

# files_in(<variable> <pattern> <folder>...): the files of that pattern directly in these folders.
function(files_in variable pattern)
  list(TRANSFORM ARGN APPEND /${pattern} OUTPUT_VARIABLE patterns)
  file(GLOB found CONFIGURE_DEPENDS ${patterns})
  set(${variable} ${found} PARENT_SCOPE)
endfunction()

# korvel_library(<name> <STATIC|OBJECT> <source>...): a library of our own code.
function(korvel_library name kind)
  add_library(${name} ${kind} ${ARGN})
  target_link_libraries(${name} PUBLIC korvel_options)
endfunction()

# korvel_headers(<library> <header>...): the build compiles each of these headers alone.
function(korvel_headers name)
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${ARGN})
endfunction()
