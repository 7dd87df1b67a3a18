# The rooms of the house: a folder's own files are one target, src/a/b is target a_b, its tests are tests/a/b
# and the program prove_a_b. src/CMakeLists.txt is the table; TestArchitettura holds every include to it.

set(REGISTRO_STANZE ${CMAKE_BINARY_DIR}/stanze.txt)
file(WRITE ${REGISTRO_STANZE} "# room|rooms it may know|Qt modules\n")
set_property(GLOBAL PROPERTY STANZE "")

set(PCH_CORE ${CMAKE_SOURCE_DIR}/cmake/pch_core.h)
set(PCH_WIDGETS ${CMAKE_SOURCE_DIR}/cmake/pch_widgets.h)

# moc_segue(<target> <sources>...): the meta-object compiler runs again when the list of sources is another one.
# CMake has it follow the sources that it has read, so a header that is new in a folder would wait for one of them
# to change.
function(moc_segue Nome)
    set(Registro ${CMAKE_BINARY_DIR}/elenchi/${Nome}.txt)
    set(Prima "")
    if(EXISTS ${Registro})
        file(READ ${Registro} Prima)
    endif()
    list(JOIN ARGN "\n" Elenco)
    if(NOT Prima STREQUAL Elenco)
        file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${Nome}_autogen/timestamp)
        file(WRITE ${Registro} "${Elenco}")
    endif()
endfunction()

# stanza(<folder> [QT modules] [HIDES libraries] [MAY rooms] [PROVE rooms])
#
# QT     Qt modules beside Core that whoever uses the room sees too; Widgets makes it a room of windows
# HIDES  libraries that only the room's own sources see
# MAY    rooms whose headers it may include; nothing else of src/ is allowed
# PROVE  further rooms and libraries that its tests link
#
# A main.cpp in the folder is left to programma(). Designer files and the meta-object compiler are for rooms
# of windows alone.
function(stanza Cartella)
    cmake_parse_arguments(A "" "" "QT;HIDES;MAY;PROVE" ${ARGN})
    string(REPLACE "/" "_" Nome ${Cartella})
    set(Radice ${CMAKE_CURRENT_SOURCE_DIR}/${Cartella})
    file(GLOB Fonti CONFIGURE_DEPENDS ${Radice}/*.cpp ${Radice}/*.h ${Radice}/*.ui)
    list(REMOVE_ITEM Fonti ${Radice}/main.cpp)

    add_library(${Nome} STATIC ${Fonti})
    target_include_directories(${Nome} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    list(TRANSFORM A_QT PREPEND Qt6::)
    list(TRANSFORM A_MAY REPLACE "/" "_" OUTPUT_VARIABLE Conosciute)
    target_link_libraries(${Nome} PUBLIC Qt6::Core ${A_QT} ${Conosciute} PRIVATE opzioni ${A_HIDES})
    compila_insieme(${Nome})

    # One precompiled header for what stands on Qt Core alone, one for what shows windows.
    if("Qt6::Widgets" IN_LIST A_QT)
        # A form is included by its path: CMake expects the header there that a changed form rebuilds.
        set_target_properties(${Nome} PROPERTIES AUTOMOC ON AUTOUIC ON AUTOUIC_SEARCH_PATHS ${CMAKE_CURRENT_SOURCE_DIR})
        moc_segue(${Nome} ${Fonti})
        set(Proprietaria platform_kit)
        set(Intestazione ${PCH_WIDGETS})
    else()
        set(Proprietaria platform_base)
        set(Intestazione ${PCH_CORE})
    endif()
    if(Nome STREQUAL Proprietaria)
        target_precompile_headers(${Nome} PRIVATE ${Intestazione})
    else()
        target_precompile_headers(${Nome} REUSE_FROM ${Proprietaria})
    endif()

    list(JOIN A_MAY " " Elenco)
    list(TRANSFORM A_QT REPLACE "^Qt6::" "" OUTPUT_VARIABLE Moduli)
    list(JOIN Moduli " " Moduli)
    file(APPEND ${REGISTRO_STANZE} "${Cartella}|${Elenco}|${Moduli}\n")
    set_property(GLOBAL APPEND PROPERTY STANZE ${Cartella})
    set_property(GLOBAL PROPERTY STANZA_${Nome}_PROVE "${Cartella};${A_PROVE}")
    set_property(GLOBAL PROPERTY STANZA_${Nome}_QT "${A_QT}")
endfunction()

# programma(<name> <folder>): the executable whose main.cpp stands in a room, beside the program's data.
function(programma Nome Cartella)
    string(REPLACE "/" "_" Stanza ${Cartella})
    add_executable(${Nome} ${CMAKE_CURRENT_SOURCE_DIR}/${Cartella}/main.cpp)
    target_link_libraries(${Nome} PRIVATE ${Stanza} opzioni)
    get_property(Moduli GLOBAL PROPERTY STANZA_${Stanza}_QT)
    if("Qt6::Widgets" IN_LIST Moduli)
        target_precompile_headers(${Nome} REUSE_FROM platform_kit)
    else()
        target_precompile_headers(${Nome} REUSE_FROM platform_base)
    endif()
    set_target_properties(${Nome} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CARTELLA_PROGRAMMA})
    set_property(GLOBAL APPEND PROPERTY PROGRAMMI ${Nome})
endfunction()
