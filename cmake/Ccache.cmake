# Compiles through ccache where it is installed; nothing depends on it.
find_program(CALCANOVA_CCACHE ccache DOC "ccache, if it is to be used")
mark_as_advanced(CALCANOVA_CCACHE)

# Without these liberties ccache refuses every file that uses a precompiled header. They are set here, not
# in the user's environment, so that an editor's build shares the cache with ./run and ./test.
if(CALCANOVA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        ${CALCANOVA_CCACHE})
endif()
