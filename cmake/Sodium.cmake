# libsodium, which brings no description of its own for CMake: the target Sodium::Sodium.
find_path(SODIUM_CARTELLA sodium.h REQUIRED)
find_library(SODIUM_LIBRERIA sodium REQUIRED)
mark_as_advanced(SODIUM_CARTELLA SODIUM_LIBRERIA)
add_library(Sodium::Sodium UNKNOWN IMPORTED)
set_target_properties(Sodium::Sodium PROPERTIES
    IMPORTED_LOCATION ${SODIUM_LIBRERIA} INTERFACE_INCLUDE_DIRECTORIES ${SODIUM_CARTELLA})
