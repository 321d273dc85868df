# The distribution's hardening flags, for builds that people use: position-independent code, a guarded stack,
# checked copies, and read-only linker tables.
if(NOT LUMEO_SANITIZE)
    include(CheckPIESupported)
    check_pie_supported()
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    add_compile_options(-fstack-protector-strong -fstack-clash-protection)
    add_compile_options("$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    add_link_options(LINKER:-z,relro LINKER:-z,now)
endif()
