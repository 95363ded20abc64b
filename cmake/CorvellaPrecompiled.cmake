# With CORVELLA_PRECOMPILE the toolkit's headers are compiled once for each kind of target instead of once for each
# file. A target reuses the precompiled headers of the highest floor that it may use. The option only shortens the
# build, and hides a missing #include; so do the builds that join files. ./check includes finds one.

set(_core_headers
    <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <span> <string> <utility> <vector>
    <QByteArray> <QCoreApplication> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QLocale> <QMap> <QObject>
    <QSettings> <QString> <QStringList> <QTimer> <QVariant>)
set(_widget_headers
    <QAbstractTableModel> <QAction> <QApplication> <QBoxLayout> <QCheckBox> <QComboBox> <QDialog> <QEvent> <QHeaderView>
    <QKeyEvent> <QLabel> <QLineEdit> <QMenu> <QMessageBox> <QMouseEvent> <QPainter> <QPushButton> <QScrollBar>
    <QStyledItemDelegate> <QTableView> <QWidget>)
set(_test_headers <gmock/gmock.h> <gtest/gtest.h>)

# corvella_precompiled(Core HEADERS ... DEPENDS Qt6::Core): the headers that targets reuse with corvella_reuse_headers.
function(corvella_precompiled name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "" "HEADERS;DEPENDS")
    string(TOLOWER "corvella_precompiled_${name}" target)
    file(WRITE "${CMAKE_BINARY_DIR}/precompiled/${target}.cpp" "")
    add_library(${target} OBJECT "${CMAKE_BINARY_DIR}/precompiled/${target}.cpp")
    set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTORCC OFF)
    target_link_libraries(${target} PRIVATE ${ARG_DEPENDS} Corvella::Flags)
    target_precompile_headers(${target} PRIVATE ${ARG_HEADERS})
endfunction()

function(corvella_reuse_headers target name)
    if(CORVELLA_PRECOMPILE)
        string(TOLOWER "corvella_precompiled_${name}" headers)
        target_precompile_headers(${target} REUSE_FROM ${headers})
    endif()
endfunction()

if(CORVELLA_PRECOMPILE)
    corvella_precompiled(Core HEADERS ${_core_headers} DEPENDS Qt6::Core)
    corvella_precompiled(Widgets HEADERS ${_core_headers} ${_widget_headers} DEPENDS Qt6::Widgets)
    if(CORVELLA_BUILD_TESTS)
        corvella_precompiled(Tests HEADERS ${_core_headers} ${_test_headers}
            DEPENDS Qt6::Core GTest::gmock GTest::gtest)
        corvella_precompiled(GuiTests HEADERS ${_core_headers} ${_widget_headers} ${_test_headers}
            DEPENDS Qt6::Widgets GTest::gmock GTest::gtest)
    endif()
endif()
