# Functions that define targets, and the compile options of our own code. Third-party code
# (GoogleTest) is compiled without these options.

add_library(korvel_options INTERFACE)
target_compile_options(korvel_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror $<$<COMPILE_LANGUAGE:CXX>:-Wconversion -Wshadow>)
target_include_directories(korvel_options INTERFACE
  ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/include)
if(WIN32)
  target_compile_definitions(korvel_options INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
  # Uses SSE, as x64 does: the x87 unit rounds differently, and a scene's picture must not depend
  # on that.
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_options(korvel_options INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()

# Products do not contain the path of the build folder, so that builds in different folders give the
# same bytes. A debugger that is started in the project's folder finds the sources.
if(CMAKE_BUILD_TYPE STREQUAL RelWithDebInfo)
  foreach(map "${PROJECT_SOURCE_DIR}=." "${PROJECT_BINARY_DIR}=build")
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${map}>")
  endforeach()
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

# korvel_headers(<library> <header>...): adds headers that the build compiles on their own, to check
# that each includes everything it needs.
function(korvel_headers name)
  target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${ARGN})
endfunction()

# korvel_product(<target> <description>): marks a library or program as one that users receive. Adds
# it to the target `products`, adds the version block, and copies its symbols to <file>.debug. The
# file records the name of that copy, so that packages can ship the symbols separately. Does nothing
# in a native build.
function(korvel_product target description)
  if(NOT WIN32)
    return()
  endif()
  set_property(GLOBAL APPEND PROPERTY KORVEL_PRODUCTS ${target})
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
  set(file $<TARGET_FILE:${target}>)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug ${file} ${file}.debug
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --add-gnu-debuglink=${file}.debug ${file} VERBATIM)
endfunction()
