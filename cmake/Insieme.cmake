# Writes a source that includes some classes of tests, each in a namespace of its own: two files may call their helpers
# alike. Their headers come first, outside of it. So none names a helper of its own by the outermost namespace, gives a
# template of somebody else a form of its own, or declares a type to the toolkit, which knows it without.
#
# The seven classes of prove_addressbook take 6.2 s of the processor one by one and 2.8 s together (GCC 12, without
# optimisation, headers compiled before). CMake's own UNITY_BUILD puts sources together without a namespace: helpers
# called alike in two classes would have to be named anew, or each by the macro of UNITY_BUILD_UNIQUE_ID.
#
#   cmake -DFONTI=<a;b> -DRADICE=<folder that paths begin at> -DFILE=<source> -P Insieme.cmake

set(Intestazioni "")
set(Classi "")
foreach(Fonte ${FONTI})
    get_filename_component(Cartella ${Fonte} DIRECTORY)
    get_filename_component(Classe ${Fonte} NAME_WE)
    file(RELATIVE_PATH Nome ${RADICE} ${Fonte})
    string(REGEX REPLACE "[^/]+$" "" Sotto ${Nome})
    file(STRINGS ${Fonte} Righe REGEX "^#include")
    foreach(Riga ${Righe})
        if(NOT Riga MATCHES "\\.moc\"")
            string(REGEX MATCH "\"([^\"]+)\"" Trovata "${Riga}")
            if(Trovata AND EXISTS ${Cartella}/${CMAKE_MATCH_1})
                set(Riga "#include \"${Sotto}${CMAKE_MATCH_1}\"")
            endif()
            list(APPEND Intestazioni "${Riga}")
        endif()
    endforeach()
    string(APPEND Classi "namespace di_${Classe} {\n#include \"${Nome}\"\n}\n")
endforeach()
list(REMOVE_DUPLICATES Intestazioni)
list(JOIN Intestazioni "\n" Intestazioni)
file(CONFIGURE OUTPUT ${FILE} CONTENT "${Intestazioni}\n\n${Classi}" @ONLY)
