# Precompiled headers of Qt, the standard library and the test framework, one for each kind of target, made once and
# reused by all targets of the kind. No source relies on them: packaging/check-tidy compiles without. They save a third
# of the time of a build from scratch. -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON builds without.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # clang takes a precompiled header only for exactly its own macros, and targets define some of their own.
    set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# A compiler cache looks for the precompiled header in what the preprocessor puts out.
add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)

# mrl_precompiled(NAME name HEADERS ... LINKS ...)
# A precompiled header as a target, for target_precompile_headers(... REUSE_FROM name). It is usable by targets that
# define at least what these LINKS define.
function(mrl_precompiled)
    cmake_parse_arguments(P "" "NAME" "HEADERS;LINKS" ${ARGN})
    add_library(${P_NAME} OBJECT ${CMAKE_SOURCE_DIR}/cmake/precompiled.cpp)
    target_link_libraries(${P_NAME} PRIVATE ${P_LINKS} mrl_warnings)
    target_precompile_headers(${P_NAME} PRIVATE ${P_HEADERS})
endfunction()

set(mrl_widget_headers
    <memory> <optional> <string> <vector>
    <QApplication> <QComboBox> <QDialog> <QLabel> <QLayout> <QLineEdit> <QMenu> <QPushButton> <QStyledItemDelegate>
    <QTableView>)
mrl_precompiled(NAME mrl_precompiled_widgets HEADERS ${mrl_widget_headers} LINKS Qt5::Widgets)
if(BUILD_TESTING)
    mrl_precompiled(NAME mrl_precompiled_tests HEADERS <gmock/gmock.h> <QString> LINKS Qt5::Core GTest::gmock)
    mrl_precompiled(NAME mrl_precompiled_window_tests HEADERS <gmock/gmock.h> <QTest> ${mrl_widget_headers}
        LINKS Qt5::Widgets Qt5::Test GTest::gmock)
endif()
