find_program(LUMEO_CCACHE ccache)
if(LUMEO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # This setting allows caching code that is compiled with precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${LUMEO_CCACHE})
endif()
