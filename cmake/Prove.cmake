# What the programs of tests share: classes compiled together, and what the meta-object compiler makes of them.

# The classes of a room are compiled together: half of the time of one is what its headers ask of the compiler, which is asked
# once then. The paths in such a source are relative, so that ccache serves every checkout.
option(CALCANOVA_INSIEME "Compile some classes of tests together" ON)

# moc_prima_di(<program> <source> <classes>...): the source waits for what is made of the classes.
function(moc_prima_di Programma Unita)
    list(TRANSFORM ARGN REPLACE "^.*/([^/]+)[.]cpp$" "${CMAKE_CURRENT_BINARY_DIR}/moc/${Programma}/\\1.moc"
        OUTPUT_VARIABLE Fatti)
    set_source_files_properties(${Unita} PROPERTIES OBJECT_DEPENDS "${Fatti}")
endfunction()

# moc_classi(<program> <classes>...): the meta-object compiler looks at a class of tests alone, not at the headers that
# it includes, as AUTOMOC has it do: nothing of them is asked, and to read them is fifty times the work (the seven
# classes of prove_addressbook: 0.50 s against 0.01 s).
# So it knows no names of the preprocessor, and no slot may stand behind a condition: TestArchitettura holds them to it.
function(moc_classi Programma)
    set(Cartella ${CMAKE_CURRENT_BINARY_DIR}/moc/${Programma})
    file(MAKE_DIRECTORY ${Cartella})
    foreach(Fonte ${ARGN})
        get_filename_component(Classe ${Fonte} NAME_WE)
        add_custom_command(OUTPUT ${Cartella}/${Classe}.moc
            COMMAND Qt6::moc ${Fonte} -o ${Cartella}/${Classe}.moc
            DEPENDS ${Fonte}
            COMMENT "" VERBATIM)
        moc_prima_di(${Programma} ${Fonte} ${Fonte})
    endforeach()
endfunction()

# insieme(<program> <result> [CON_MOC] <sources>...): sources that include some of them each, which the program lists
# beside them.
function(insieme Programma Risultato)
    cmake_parse_arguments(A "CON_MOC" "" "" ${ARGN})
    set(PerUnita 100)  # a room, unless it outgrows what one compiler should hold
    set(Insieme "")
    if(CALCANOVA_INSIEME)
        set(Insieme ${A_UNPARSED_ARGUMENTS})
    endif()
    list(LENGTH Insieme Quante)
    set(${Risultato} "" PARENT_SCOPE)
    if(Quante LESS 2)
        return()
    endif()
    set(Unita "")
    foreach(Primo RANGE 0 ${Quante} ${PerUnita})
        if(Primo LESS Quante)
            list(SUBLIST Insieme ${Primo} ${PerUnita} Fonti)
            set(File ${CMAKE_CURRENT_BINARY_DIR}/insieme/${Programma}_${Primo}.cpp)
            add_custom_command(OUTPUT ${File}
                COMMAND ${CMAKE_COMMAND} "-DFONTI=${Fonti}" -DRADICE=${CMAKE_CURRENT_SOURCE_DIR}
                    -DFILE=${File} -P ${CMAKE_SOURCE_DIR}/cmake/Insieme.cmake
                DEPENDS ${Fonti} ${CMAKE_SOURCE_DIR}/cmake/Insieme.cmake
                COMMENT "" VERBATIM)
            list(APPEND Unita ${File})
            if(A_CON_MOC)
                moc_prima_di(${Programma} ${File} ${Fonti})
            endif()
        endif()
    endforeach()
    set_source_files_properties(${Insieme} PROPERTIES HEADER_FILE_ONLY ON)
    # A class is no header that others might see.
    set_source_files_properties(${Unita} PROPERTIES
        COMPILE_OPTIONS "$<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>")
    set(${Risultato} ${Unita} PARENT_SCOPE)
endfunction()
