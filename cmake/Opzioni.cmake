# Flags and warnings that every target of this project links as `opzioni`.
add_library(opzioni INTERFACE)
target_compile_options(opzioni INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wnull-dereference -Wdouble-promotion -Wimplicit-fallthrough)
target_compile_definitions(opzioni INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# A package is built with tomorrow's compiler, whose new warnings must not stop it; whoever works here sees them all.
option(CALCANOVA_WERROR "Treat warnings as errors" OFF)
if(CALCANOVA_WERROR)
    target_compile_options(opzioni INTERFACE -Werror)
endif()

# Doubles decide cents: the compiler may not fuse or reorder their arithmetic.
target_compile_options(opzioni INTERFACE -ffp-contract=off)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports false null dereferences inside Qt's inline containers when it optimises.
    target_compile_options(opzioni INTERFACE -Wno-null-dereference)
    # Lets ccache serve a build with precompiled headers.
    target_compile_options(opzioni INTERFACE -fpch-preprocess)
    # The compiler tidies its memory less often, and not below a gigabyte: an eighth less of its time for a
    # quarter more of memory.
    target_compile_options(opzioni INTERFACE --param=ggc-min-expand=300 --param=ggc-min-heapsize=1048576)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # clang blames a nested class for the names of its enclosing one's members, which it cannot reach.
    target_compile_options(opzioni INTERFACE -Wno-shadow)
    # Lets ccache serve a build with precompiled headers: they hold no times of their sources.
    target_compile_options(opzioni INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
endif()

# For sources that are compiled together, behind `opzioni`: one that is included by another is no header that
# others might see, and what it names for itself does not shadow its neighbours. The debug, sanitizer and lint
# builds compile each alone, and do look.
add_library(opzioni_insieme INTERFACE)
target_compile_options(opzioni_insieme INTERFACE -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)

# compila_insieme(<target>): its sources are compiled together, where the preset wants it. Each of them alone costs
# half a second for the headers of the toolkit.
function(compila_insieme Nome)
    if(CALCANOVA_UNITA)
        set_target_properties(${Nome} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
        target_link_libraries(${Nome} PRIVATE opzioni_insieme)
    endif()
endfunction()

if(CALCANOVA_SANITIZERS OR CALCANOVA_FUZZ)
    # Whoever looks for faults wants the assertions too, Qt's and the library's.
    add_compile_definitions(QT_FORCE_ASSERTS _GLIBCXX_ASSERTIONS)
endif()
if(CALCANOVA_SANITIZERS)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(CALCANOVA_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -g -O1)
    add_link_options(-fsanitize=address,undefined)
endif()
