#include "BoundProcess.h"
#include "CommandLine.h"
#include "Printers.h"
#include "WaitFor.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using testing::HasSubstr;
using testing::Not;

/// What the build makes of a changelog.
class VersionTest : public testing::Test
{
protected:
    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// @p expression, of CMake, for @p changelog; empty if that is refused.
    [[nodiscard]] QByteArray evaluated(const QByteArray &expression,
                                       const QByteArray &changelog) const
    {
        write(u"CHANGELOG.md"_s, changelog);
        write(u"script.cmake"_s, "include(" OSTREL_SOURCE_DIR "/cmake/Version.cmake)\n"
                                 "include(" OSTREL_SOURCE_DIR "/cmake/Releases.cmake)\n"
                                 "set(PROJECT_SOURCE_DIR ${CMAKE_CURRENT_LIST_DIR})\n"
                                 "set(OSTREL_DATE 2026-03-04)\n"
                                 "ostrel_read_version(${PROJECT_SOURCE_DIR}/CHANGELOG.md)\n"
                                 "ostrel_releases(OSTREL_RELEASES)\n"
                                 "file(WRITE ${PROJECT_SOURCE_DIR}/result \"" +
                                     expression + "\")\n");
        BoundProcess cmake;
        cmake.logTo(folder.filePath(u"errors"_s));
        cmake.start(u"" OSTREL_CMAKE ""_s, {u"-P"_s, folder.filePath(u"script.cmake"_s)});
        EXPECT_TRUE(waitFor([&] { return cmake.state() == QProcess::NotRunning; }));
        QFile result(folder.filePath(u"result"_s));
        return result.open(QIODevice::ReadOnly) ? result.readAll() : QByteArray();
    }
    [[nodiscard]] QByteArray versionOf(const QByteArray &changelog) const
    {
        return evaluated("${OSTREL_VERSION}", changelog);
    }
    [[nodiscard]] std::string releasesOf(const QByteArray &changelog) const
    {
        return evaluated("${OSTREL_RELEASES}", changelog).toStdString();
    }

    QTemporaryDir folder;
};

constexpr auto released = "# Changelog\n\n## 1.2.0 (2026-02-03)\n\n- A second.\n\n"
                          "## 1.0.0 (2026-01-02)\n\n- A first.\n";
constexpr auto unreleased = "# Changelog\n\n## Unreleased\n\n- More.\n\n"
                            "## 1.2.0 (2026-02-03)\n\n- A second.\n";
constexpr auto neverReleased = "# Changelog\n\n## Unreleased\n\n- All.\n";

} // namespace

TEST_F(VersionTest, SourcesOfAReleaseHaveItsVersion)
{
    EXPECT_EQ(versionOf(released), "1.2.0");
}

TEST_F(VersionTest, UnreleasedSourcesSaySoBehindTheNewestRelease)
{
    EXPECT_EQ(versionOf(unreleased), "1.2.0+unreleased");
    EXPECT_EQ(versionOf(neverReleased), "0.0.0+unreleased");
}

TEST_F(VersionTest, AnotherHeadingIsRefused)
{
    EXPECT_EQ(versionOf("# Changelog\n\n## 1.2 (2026-02-03)\n"), QByteArray());
    EXPECT_EQ(versionOf("# Changelog\n\n## 1.2.0 (soon)\n"), QByteArray());
}

TEST_F(VersionTest, TheMetainfoListsTheReleases)
{
    const std::string releases = releasesOf(released);
    EXPECT_THAT(releases, HasSubstr("<release version=\"1.2.0\" date=\"2026-02-03\">"));
    EXPECT_THAT(releases, HasSubstr("<release version=\"1.0.0\" date=\"2026-01-02\">"));
    EXPECT_THAT(releases, Not(HasSubstr("development")));
}

TEST_F(VersionTest, TheMetainfoCallsNothingReleasedThatIsNot)
{
    EXPECT_THAT(releasesOf(unreleased),
                HasSubstr("<release version=\"1.2.0+unreleased\" date=\"2026-03-04\" "
                          "type=\"development\">"));
    EXPECT_THAT(releasesOf(unreleased),
                HasSubstr("<release version=\"1.2.0\" date=\"2026-02-03\">"));
    EXPECT_EQ(releasesOf(neverReleased).find("<release "),
              releasesOf(neverReleased).find("<release version=\"0.0.0+unreleased\""));
}

TEST_F(VersionTest, TheProgramSaysThatOfItsSources)
{
    QFile changelog(u"" OSTREL_SOURCE_DIR "/CHANGELOG.md"_s);
    ASSERT_TRUE(changelog.open(QIODevice::ReadOnly));
    const Invocation invocation = parseCommandLine({u"ostrel"_s, u"--version"_s});
    EXPECT_EQ(std::get<AnswerInvocation>(invocation).text.toUtf8(),
              "ostrel " + versionOf(changelog.readAll()) + "\n");
}

} // namespace ostrel::test
