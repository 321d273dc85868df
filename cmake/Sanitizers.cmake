# LUMEO_SANITIZE is a semicolon list for -fsanitize, set by the presets asan, tsan and fuzz.
set(LUMEO_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address;undefined or thread")
if(LUMEO_SANITIZE)
    list(JOIN LUMEO_SANITIZE "," lumeo_sanitizers)
    add_compile_options(-fsanitize=${lumeo_sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    # Under the sanitizers the compiler warns wrongly that variants use uninitialized memory.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    # This check probes memory through a pipe, which the cage of the helpers refuses.
    add_compile_options(-fno-sanitize=vptr)
    add_link_options(-fsanitize=${lumeo_sanitizers})
endif()
