# libmdb, which reads files of Access: the target PkgConfig::Mdb, for the program calcanova-accesso alone.
if(CALCANOVA_ACCESSO)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(Mdb REQUIRED IMPORTED_TARGET libmdb)
endif()
