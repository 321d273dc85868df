# Without this, a first build would mostly read the same few headers. Each file must still include what it
# uses, because the sanitizer presets build without precompiled headers.

# lumeo_precompile(target headers…): the headers that nearly all files of a large target read, in addition to
# those of the core.
function(lumeo_precompile target)
    target_precompile_headers(${target} PRIVATE
        <algorithm> <array> <chrono> <condition_variable> <filesystem> <functional> <memory> <mutex>
        <optional> <span> <string> <string_view> <unordered_map> <utility> <variant> <vector>
        <nlohmann/json.hpp>
        ${ARGN})
    if(LUMEO_CCACHE AND CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
        target_compile_options(${target} PRIVATE -fpch-preprocess) # ccache needs this flag
    endif()
endfunction()

# lumeo_share_precompiled(target owner): uses the headers of another target that is compiled with the same
# flags.
function(lumeo_share_precompiled target owner)
    if(CMAKE_DISABLE_PRECOMPILE_HEADERS)
        return()
    endif()
    target_precompile_headers(${target} REUSE_FROM ${owner})
    if(LUMEO_CCACHE AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
endfunction()
