# Every target of ours compiles without a warning. The presets that we work with take one for an error; `run`,
# which is for everybody, does not, as a compiler that we do not know may warn of more.
add_library(lumeo_warnings INTERFACE)
target_compile_options(lumeo_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
    "$<$<CXX_COMPILER_ID:Clang>:-Wthread-safety;-Werror=thread-safety>" # platform/Mutex.h
    -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wundef)
