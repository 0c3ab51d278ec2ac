# Headers of libraries that nearly every file of a target includes are read once. The files still include what they use:
# nothing but the time changes.

# What the core is made of.
set(TOVAK_STANDARD_HEADERS <algorithm> <array> <cstdint> <filesystem> <memory> <optional> <string> <string_view>
                           <utility> <vector>)
set(TOVAK_WINDOW_HEADERS ${TOVAK_STANDARD_HEADERS} <QApplication> <QComboBox> <QDialog> <QLabel> <QLineEdit> <QMainWindow>
                         <QMessageBox> <QPushButton> <QScreen> <QTimer>)

# Takes the compiler's own check into account that ccache makes by itself.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  add_compile_options(-fpch-preprocess)
endif()

# tovak_precompiled_as(TARGET OTHER HEADER...): those of the other target, which is compiled with the same options; it
# comes by them when it is the target itself.
function(tovak_precompiled_as target other)
  if(target STREQUAL other)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  else()
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()
