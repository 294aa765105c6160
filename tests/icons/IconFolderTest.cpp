#include "IconFolder.h"

#include "Printers.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <string>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

using namespace std::chrono_literals;

struct NameCase
{
    const char *name;
    const char *domain;
    const char *fileName;
};

class IconFileNameTest : public testing::TestWithParam<NameCase>
{
};

class IconFolderTest : public testing::Test
{
protected:
    IconFolderTest() { folder.prepare(); }

    /// Creates a file that was last written @p age ago.
    void putFile(const QString &name, std::chrono::seconds age) const
    {
        QFile file(path + QLatin1Char('/') + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-age.count()),
                                     QFileDevice::FileModificationTime));
    }

    [[nodiscard]] QStringList files() const
    {
        return QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir parent;
    QString path = parent.filePath(u"a/b/favicons"_s);
    IconFolder folder{path};
    const QString domain = u"example.org"_s;
};

QImage square(Qt::GlobalColor color)
{
    QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

} // namespace

TEST_P(IconFileNameTest, StaysInTheFolder)
{
    EXPECT_EQ(IconFolder::fileName(QString::fromUtf8(GetParam().domain)),
              QString::fromLatin1(GetParam().fileName));
}

INSTANTIATE_TEST_SUITE_P(
    Table, IconFileNameTest,
    testing::Values(NameCase{"Ordinary", "example.org", "example.org.png"},
                    NameCase{"Hyphen", "my-shop_1.example.org", "my-shop_1.example.org.png"},
                    NameCase{"Address", "192.0.2.7", "192.0.2.7.png"},
                    NameCase{"Port", "db.local:5432", "db.local%3A5432.png"},
                    NameCase{"Ipv6", "::1", "%3A%3A1.png"}, NameCase{"Parent", "..", "%2E..png"},
                    NameCase{"Hidden", ".bashrc", "%2Ebashrc.png"},
                    NameCase{"Slashes", "../../etc/passwd", "%2E.%2F..%2Fetc%2Fpasswd.png"},
                    NameCase{"Backslashes", "..\\x", "%2E.%5Cx.png"},
                    NameCase{"Encoded", "%2e%2e%2f", "%252e%252e%252f.png"},
                    NameCase{"ControlCharacters", "a\nb", "a%0Ab.png"},
                    NameCase{"International", "ärzte.de", "%C3%A4rzte.de.png"}),
    [](const auto &testCase) { return std::string(testCase.param.name); });

TEST_F(IconFolderTest, ATooLongDomainHasNoFile)
{
    EXPECT_EQ(IconFolder::fileName(QString(251, QLatin1Char('a'))).value_or(QString()).size(), 255);
    EXPECT_EQ(IconFolder::fileName(QString(252, QLatin1Char('a'))), std::nullopt);
    EXPECT_EQ(IconFolder::fileName(QString(100, QLatin1Char('/'))), std::nullopt);
    EXPECT_EQ(IconFolder::fileName(QString()), std::nullopt);

    folder.write(QString(252, QLatin1Char('a')), square(Qt::red));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(IconFolderTest, ANullCharacterDoesNotCutAName)
{
    EXPECT_EQ(IconFolder::fileName(u"a"_s + QChar(0) + u"b"_s), u"a%00b.png"_s);
}

TEST_F(IconFolderTest, AnIconIsReadAsItWasWritten)
{
    folder.write(domain, square(Qt::red));
    EXPECT_EQ(folder.read(domain), square(Qt::red));
    EXPECT_EQ(files(), QStringList{u"example.org.png"_s});
}

TEST_F(IconFolderTest, ANewIconReplacesTheOldOne)
{
    folder.write(domain, square(Qt::red));
    folder.write(domain, square(Qt::blue));
    EXPECT_EQ(folder.read(domain), square(Qt::blue));
    EXPECT_EQ(files().size(), 1);
}

TEST_F(IconFolderTest, AnOpenOldFileKeepsItsContent)
{
    folder.write(domain, square(Qt::red));
    QFile old(path + u"/example.org.png"_s);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    folder.write(domain, square(Qt::blue));
    EXPECT_EQ(QImage::fromData(old.readAll()).pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(IconFolderTest, AFailedWriteLeavesTheOldIcon)
{
    folder.write(domain, square(Qt::red));
    folder.write(domain, QImage());
    EXPECT_EQ(folder.read(domain), square(Qt::red));
    EXPECT_EQ(files().size(), 1);
}

TEST_F(IconFolderTest, AMissingFileOrAFolderIsNoIcon)
{
    EXPECT_TRUE(folder.read(domain).isNull());
    ASSERT_TRUE(QDir(path).mkdir(u"example.org.png"_s));
    EXPECT_TRUE(folder.read(domain).isNull());
}

TEST_F(IconFolderTest, AFolderUnderAnIconsNameIsNotTouched)
{
    ASSERT_TRUE(QDir(path).mkdir(u"example.org.png"_s));
    folder.write(domain, square(Qt::red));
    EXPECT_TRUE(QFileInfo(path + u"/example.org.png"_s).isDir());
    EXPECT_EQ(files().size(), 1);
}

TEST_F(IconFolderTest, APipeUnderAnIconsNameDoesNotBlock)
{
    const QByteArray pipe = QFile::encodeName(path + u"/example.org.png"_s);
    ASSERT_EQ(::mkfifo(pipe.constData(), S_IRUSR | S_IWUSR), 0);
    EXPECT_TRUE(folder.read(domain).isNull());
    folder.write(domain, square(Qt::red));
    EXPECT_EQ(folder.read(domain), square(Qt::red));
}

TEST_F(IconFolderTest, ALinkToAPipeDoesNotBlock)
{
    const QString pipe = path + u"/pipe"_s;
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
    ASSERT_TRUE(QFile::link(pipe, path + u"/example.org.png"_s));
    EXPECT_TRUE(folder.read(domain).isNull());
}

TEST_F(IconFolderTest, AFileIsWrittenEvenIfTheFolderIsGone)
{
    ASSERT_TRUE(QDir(parent.filePath(u"a"_s)).removeRecursively());
    folder.write(domain, square(Qt::red));
    EXPECT_EQ(folder.read(domain), square(Qt::red));
    constexpr auto user = QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser;
    constexpr auto owner = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    EXPECT_EQ(QFile::permissions(path), user | owner);
}

TEST_F(IconFolderTest, AFolderThatOthersCouldReadBecomesPrivate)
{
    ASSERT_TRUE(QFile::setPermissions(path, QFileDevice::Permissions(0x7755)));
    folder.prepare();
    EXPECT_EQ(QFile::permissions(path) & QFileDevice::Permissions(0x0077),
              QFileDevice::Permissions());
}

TEST_F(IconFolderTest, LeftoversOfACrashAreRemoved)
{
    // The names that QSaveFile gives its temporary files if the file system gives every file a
    // name.
    QTemporaryFile temporary(path + u"/example.org.png.XXXXXX"_s);
    temporary.setAutoRemove(false);
    ASSERT_TRUE(temporary.open());
    const QString left = QFileInfo(temporary.fileName()).fileName();
    temporary.close();
    putFile(left, IconFolder::leftoverAge + 1min);
    putFile(u"%2Ebashrc.png.abcXYZ"_s, IconFolder::leftoverAge + 1min);
    folder.prepare();
    EXPECT_EQ(files(), QStringList());
}

TEST_F(IconFolderTest, FilesThatMayBeInUseOrForeignAreKept)
{
    const QStringList others = {
        u"example.org.png"_s,        u"example.org.png.abc"_s, u"example.org.png.abcdefg"_s,
        u"example.org.png.abcde1"_s, u"notes.abcdef"_s,        u".png.abcdef"_s,
    };
    for (const QString &name : others)
        putFile(name, IconFolder::leftoverAge + 1min);
    putFile(u"example.net.png.abcdef"_s, IconFolder::leftoverAge - 1min);
    ASSERT_TRUE(QDir(path).mkdir(u"example.com.png.abcdef"_s));
    ASSERT_TRUE(QFile::link(path + u"/example.org.png"_s, path + u"/link.png.abcdef"_s));
    folder.prepare();
    EXPECT_EQ(files().size(), others.size() + 3);
}

} // namespace ostrel::test
