# Reading the same few headers would be most of a first build. Each file names those it uses all the same:
# the sanitizer presets build without these.

# lumeo_precompile(target headers…): what nearly all of a large target reads, beside what the core reads.
function(lumeo_precompile target)
    target_precompile_headers(${target} PRIVATE
        <algorithm> <array> <chrono> <condition_variable> <filesystem> <functional> <memory> <mutex>
        <optional> <span> <string> <string_view> <unordered_map> <utility> <variant> <vector>
        <nlohmann/json.hpp>
        ${ARGN})
    if(LUMEO_CCACHE AND CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
        target_compile_options(${target} PRIVATE -fpch-preprocess) # which it asks for
    endif()
endfunction()

# lumeo_share_precompiled(target owner): the headers of another target, which is compiled with the same flags.
function(lumeo_share_precompiled target owner)
    if(CMAKE_DISABLE_PRECOMPILE_HEADERS)
        return()
    endif()
    target_precompile_headers(${target} REUSE_FROM ${owner})
    if(LUMEO_CCACHE AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
endfunction()
