# Functions that build targets from all files of a folder, and the compile options of all our own
# code. Third-party code (GoogleTest) is compiled without them.

add_library(korvel_options INTERFACE)
target_compile_options(korvel_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror $<$<COMPILE_LANGUAGE:CXX>:-Wconversion -Wshadow>)
target_include_directories(korvel_options INTERFACE
  ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/include)
if(WIN32)
  target_compile_definitions(korvel_options INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
  # Uses SSE as on 64 bits, because the x87 unit rounds differently, and a scene's picture must not
  # depend on that.
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_options(korvel_options INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()

# files_in(<variable> <pattern> <folder>...): lists the matching files in these folders, without
# subfolders.
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

# korvel_headers(<library> <header>...): headers that the build compiles on their own, to check that
# each includes everything it needs.
function(korvel_headers name)
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${ARGN})
endfunction()

# korvel_product(<target> <description>): adds the version block to a library or program that users
# receive. Does nothing natively.
function(korvel_product target description)
  if(NOT WIN32)
    return()
  endif()
  set(product_type VFT_APP)
  set(product_suffix .exe)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL SHARED_LIBRARY)
    set(product_type VFT_DLL)
    set(product_suffix .dll)
  endif()
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${target}-version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resources} @ONLY)
  target_sources(${target} PRIVATE ${resources})
endfunction()
