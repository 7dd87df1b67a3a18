# Lays the public key of updates where the program looks for it, beside the executable. A script of its own too:
# cmake -DCALCANOVA_CHIAVE=<file> -DCARTELLA_PROGRAMMA=<folder> -P cmake/Chiave.cmake

if(CALCANOVA_CHIAVE)
    if(NOT EXISTS "${CALCANOVA_CHIAVE}")
        message(FATAL_ERROR "CALCANOVA_CHIAVE names no file: ${CALCANOVA_CHIAVE}")
    endif()
    configure_file("${CALCANOVA_CHIAVE}" "${CARTELLA_PROGRAMMA}/calcanova.pub" COPYONLY)
endif()
