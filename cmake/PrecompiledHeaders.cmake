# Headers that most files include are parsed once for all of them. That would let a file forget an
# include, so it is only for presets with another purpose; all others reveal forgotten includes.
option(OSTREL_PRECOMPILED "Compile with precompiled headers" OFF)

# ostrel_precompiled(core LIBRARIES Qt6::Core HEADERS <QString> …) makes the set `core`.
function(ostrel_precompiled set)
    cmake_parse_arguments(ARG "" "" "LIBRARIES;HEADERS" ${ARGN})
    set(source ${CMAKE_BINARY_DIR}/precompiled/${set}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(ostrel_precompiled_${set} OBJECT ${source})
    target_link_libraries(ostrel_precompiled_${set} PRIVATE ostrel_options ${ARG_LIBRARIES})
    target_precompile_headers(ostrel_precompiled_${set} PRIVATE ${ARG_HEADERS})
    # Without this, ccache can't tell what a precompiled header was made from.
    target_compile_options(ostrel_precompiled_${set} PRIVATE -fpch-preprocess)
endfunction()

# Makes a target's files use that set.
function(ostrel_use_precompiled target set)
    if(OSTREL_PRECOMPILED)
        target_precompile_headers(${target} REUSE_FROM ostrel_precompiled_${set})
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
endfunction()

if(NOT OSTREL_PRECOMPILED)
    return()
endif()
set(everyday
    <algorithm> <array> <atomic> <chrono> <cmath> <functional> <memory> <optional> <span> <string>
    <string_view> <thread> <unordered_map> <utility> <vector>
    <QByteArray> <QCoreApplication> <QDateTime> <QDir> <QFile> <QFuture> <QHash> <QList> <QMap>
    <QObject> <QPromise> <QString> <QStringList> <QTemporaryDir> <QTimer> <QUrl> <QUuid> <QVariant>)
set(views
    <QColor> <QGuiApplication> <QImage> <QPainter> <QQmlComponent> <QQmlContext> <QQmlEngine>
    <QQuickItem> <QQuickWindow> <QtQml/qqmlprivate.h> <QtQml/qqmlregistration.h>)
set(tests <gmock/gmock.h> <gtest/gtest.h>)
ostrel_precompiled(core LIBRARIES Qt6::Core HEADERS ${everyday})
if(BUILD_TESTING)
    ostrel_precompiled(core_test LIBRARIES Qt6::Core GTest::gmock HEADERS ${everyday} ${tests})
endif()
if(NOT OSTREL_CORE_ONLY)
    ostrel_precompiled(view LIBRARIES Qt6::Quick HEADERS ${everyday} ${views})
    if(BUILD_TESTING)
        ostrel_precompiled(view_test LIBRARIES Qt6::Quick GTest::gmock
            HEADERS ${everyday} ${views} ${tests})
    endif()
endif()
