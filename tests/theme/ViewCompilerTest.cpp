#include "BoundProcess.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

/// The code that the build makes of the view @p name of the theme; empty if it fails.
QByteArray codeOf(const QString &name)
{
    const QTemporaryDir folder;
    const QString code = folder.filePath(u"code.cpp"_s);
    const QString resources = u"" OSTREL_THEME_BUILD_DIR "/.rcc/"_s;
    BoundProcess compiler;
    compiler.start(u"" OSTREL_QMLCACHEGEN ""_s,
                   {u"--bare"_s, u"--resource-path"_s, u"/qt/qml/Ostrel/Theme/"_s + name, u"-I"_s,
                    u"" OSTREL_QML_DIR ""_s, u"-i"_s, u"" OSTREL_THEME_QMLDIR ""_s, u"--resource"_s,
                    resources + u"qmake_Ostrel_Theme.qrc"_s, u"--resource"_s,
                    resources + u"ostrel_theme_raw_qml_0.qrc"_s, u"-o"_s, code,
                    u"" OSTREL_SOURCE_DIR "/src/theme/"_s + name});
    EXPECT_TRUE(waitFor([&] { return compiler.state() == QProcess::NotRunning; }));
    EXPECT_EQ(compiler.exitCode(), 0);
    QFile file(code);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(ViewCompilerTest, AViewGivesTheSameCodeEachTime)
{
    const QByteArray code = codeOf(u"Badge.qml"_s);
    EXPECT_TRUE(code.contains("QVariant r")) << "a view that needs variables";
    for (int time = 0; time < 4; ++time)
        EXPECT_TRUE(codeOf(u"Badge.qml"_s) == code);
}

} // namespace ostrel::test
