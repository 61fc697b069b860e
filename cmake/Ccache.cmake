# Compiler cache, where it is installed. Debug paths are cut off below, so that clones share the cache.
find_program(VIZ_CCACHE ccache)
if(VIZ_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${VIZ_CCACHE})
endif()
