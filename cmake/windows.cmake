# What a build for Windows with GCC needs besides. The functions of files and windows are those for wide characters.
add_compile_definitions(UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0A00 _FILE_OFFSET_BITS=64
                        _POSIX_THREAD_SAFE_FUNCTIONS)
# There is no visibility of symbols: a library or a module exports all that it does not take from a static library.
add_compile_options(-Wno-attributes)
add_link_options(-Wl,--exclude-libs,ALL)
# What the checks of cmake/hardening.cmake call, in every program and library by itself.
link_libraries(-l:libssp.a)
