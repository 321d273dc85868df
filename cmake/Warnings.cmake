# Every target of ours compiles without a warning; LUMEO_WERROR=OFF lets a newer compiler through.
option(LUMEO_WERROR "Treat compiler warnings as errors" ON)

add_library(lumeo_warnings INTERFACE)
target_compile_options(lumeo_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wundef
    $<$<BOOL:${LUMEO_WERROR}>:-Werror>)

# What is generated from a target's QML files is not ours to mend. It holds byte code only: bindings that
# ask the theme gain nothing from becoming C++, which takes a minute to compile.
function(lumeo_silence_generated target)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "/\\.rcc/")
    set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w)
    set_target_properties(${target} PROPERTIES QT_QMLCACHEGEN_ARGUMENTS --only-bytecode)
endfunction()
