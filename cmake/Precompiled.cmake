# Precompiled headers. Only headers from outside the project go in: they never
# change between builds, so a precompiled header is made once per configuration
# and every source of the targets that share it skips their parse.

set(ORL_STD_PCH_HEADERS <algorithm> <filesystem> <functional> <map> <memory> <string> <vector>)

# GoogleTest and the standard library, shared by every test suite: one target
# hosts the compiled header and the suites reuse it.
function(orl_add_test_pch host)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${host}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "// Hosts the precompiled header the test suites share.\n")
  add_library(${host} OBJECT ${source})
  target_link_libraries(${host} PRIVATE GTest::gtest)
  target_precompile_headers(${host} PRIVATE <gtest/gtest.h> ${ORL_STD_PCH_HEADERS})
endfunction()

# The Qt widget headers the forms and widgets use most.
function(orl_precompile_qt target)
  target_precompile_headers(${target} PRIVATE
    <QApplication> <QComboBox> <QDialog> <QHBoxLayout> <QLabel> <QLineEdit> <QListWidget>
    <QPainter> <QPlainTextEdit> <QPushButton> <QTabWidget> <QTimer> <QVBoxLayout> <QWidget>
    ${ORL_STD_PCH_HEADERS})
endfunction()
