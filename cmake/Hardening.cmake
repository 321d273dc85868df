# The distribution's hardening flags, for what is built to be used: code at no fixed place, a guarded stack,
# checked copies, and tables of the linker that cannot be written to.
if(NOT LUMEO_SANITIZE)
    include(CheckPIESupported)
    check_pie_supported()
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    add_compile_options(-fstack-protector-strong -fstack-clash-protection)
    add_compile_options("$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    add_link_options(LINKER:-z,relro LINKER:-z,now)
endif()
