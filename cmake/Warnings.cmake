# All our targets compile without a warning. In the presets that developers use, a warning is an error. In
# `run`, which is for everybody, it is not, because an unknown compiler may warn about more.
add_library(lumeo_warnings INTERFACE)
target_compile_options(lumeo_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
    # Where files are compiled together, what is private to a file seems to be in a header.
    "$<$<BOOL:${CMAKE_UNITY_BUILD}>:-Wno-subobject-linkage>"
    "$<$<CXX_COMPILER_ID:Clang>:-Wthread-safety;-Werror=thread-safety>" # platform/Mutex.h
    -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wundef)
