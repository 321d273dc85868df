# Every target of ours compiles without a warning; LUMEO_WERROR=OFF lets a newer compiler through.
option(LUMEO_WERROR "Treat compiler warnings as errors" ON)

add_library(lumeo_warnings INTERFACE)
target_compile_options(lumeo_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wundef
    $<$<BOOL:${LUMEO_WERROR}>:-Werror>)
