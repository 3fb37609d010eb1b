# find_package(korvel) defines korvel::korvel: the library, its import library for the compiler in
# use, and its header. The package can be in any folder.
get_filename_component(_korvel_folder ${CMAKE_CURRENT_LIST_DIR}/../../.. ABSOLUTE)
if(NOT TARGET korvel::korvel)
  add_library(korvel::korvel SHARED IMPORTED)
  if(MINGW)
    set(_korvel_import_library libkorvel.dll.a)
  else()
    set(_korvel_import_library korvel.lib)
  endif()
  set_target_properties(korvel::korvel PROPERTIES
    IMPORTED_LOCATION ${_korvel_folder}/bin/korvel.dll
    IMPORTED_IMPLIB ${_korvel_folder}/lib/${_korvel_import_library}
    INTERFACE_INCLUDE_DIRECTORIES ${_korvel_folder}/include)
  unset(_korvel_import_library)
endif()
unset(_korvel_folder)
