# What the compiler and the linker put around the program against faults of its own: in what is released at no cost that
# the benchmark could show, in what is tested at any.
include(CheckPIESupported)
check_pie_supported() # without it CMake compiles for PIE and links without
add_compile_options(-fstack-protector-strong)
if(NOT WIN32) # whose linker makes addresses random and data not executable by itself
  add_link_options(-Wl,-z,relro,-z,now)
endif()
# Some compilers preset it to another value.
add_compile_options($<$<CONFIG:Release>:-U_FORTIFY_SOURCE> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
add_compile_definitions($<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)
