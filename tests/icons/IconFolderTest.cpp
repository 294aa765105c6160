#include "IconFolder.h"

#include "Printers.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
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

TEST_P(IconFileNameTest, IsTheDomainAsItIs)
{
    EXPECT_EQ(IconFolder::fileName(QString::fromUtf8(GetParam().domain)),
              QString::fromUtf8(GetParam().fileName));
}

INSTANTIATE_TEST_SUITE_P(
    Table, IconFileNameTest,
    testing::Values(NameCase{"Ordinary", "example.org", "example.org.png"},
                    NameCase{"Hyphen", "my-shop_1.example.org", "my-shop_1.example.org.png"},
                    NameCase{"Address", "192.0.2.7", "192.0.2.7.png"},
                    NameCase{"Port", "db.local:5432", "db.local:5432.png"},
                    NameCase{"Ipv6", "::1", "::1.png"},
                    NameCase{"International", "bücher.de", "bücher.de.png"},
                    NameCase{"ThisFolder", ".", "..png"}, NameCase{"Parent", "..", "...png"},
                    NameCase{"Hidden", ".bashrc", ".bashrc.png"},
                    NameCase{"Slashes", "../../etc/passwd", "..%2F..%2Fetc%2Fpasswd.png"},
                    NameCase{"Root", "/", "%2F.png"}, NameCase{"Backslashes", "..\\x", "..\\x.png"},
                    NameCase{"Encoded", "%2e%2e%2f", "%2e%2e%2f.png"},
                    NameCase{"ControlCharacters", "a\nb", "a\nb.png"},
                    NameCase{"Blanks", " a b ", " a b .png"}),
    [](const auto &testCase) { return std::string(testCase.param.name); });

TEST_F(IconFolderTest, ATooLongDomainIsNamedByItsHash)
{
    const QString longest(244, QLatin1Char('a'));
    EXPECT_EQ(IconFolder::fileName(longest), longest + u".png"_s);
    for (const Qt::GlobalColor color : {Qt::red, Qt::blue}) {
        folder.write(longest, square(color));
        EXPECT_EQ(folder.read(longest), square(color)) << "QSaveFile's own name is longer";
    }
    for (const QString &site : {longest + u'a', longest + u'b', QString(126, u'ü'),
                                QString(100, u'/'), QString(9000, u'.')}) {
        const QString name = IconFolder::fileName(site).value_or(QString());
        EXPECT_TRUE(QRegularExpression(u"^[0-9a-f]{64}\\.png$"_s).match(name).hasMatch())
            << qPrintable(name);
        folder.write(site, square(Qt::red));
        EXPECT_TRUE(QFile::exists(path + u'/' + name));
        EXPECT_EQ(folder.read(site), square(Qt::red));
    }
    EXPECT_EQ(files().size(), 6);
    EXPECT_EQ(IconFolder::fileName(QString()), std::nullopt);
}

TEST_F(IconFolderTest, ANullCharacterDoesNotCutAName)
{
    EXPECT_EQ(IconFolder::fileName(u"a"_s + QChar(0) + u"b"_s), u"a%00b.png"_s);
}

TEST_F(IconFolderTest, NoDomainsFileIsOutsideTheFolder)
{
    for (const QString &site :
         {u".."_s, u"."_s, u"../x"_s, u"../../x"_s, u"/x"_s, u"x/../../y"_s, u"..\\x"_s, u"~"_s,
          u"-rf"_s, u"a\nb"_s, u"..%2f"_s, u"..%2F"_s, QString(QChar(0)), u"../"_s + QChar(0),
          u"*"_s, QString(QChar(0xd800)), QString(300, u'/'), u"a/b"_s}) {
        folder.write(site, square(Qt::red));
        EXPECT_EQ(folder.read(site), square(Qt::red)) << qPrintable(site);
        static_cast<void>(folder.read(site));
    }
    const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    EXPECT_EQ(QDir(parent.path()).entryList(all), QStringList{u"a"_s});
    EXPECT_EQ(QDir(parent.filePath(u"a"_s)).entryList(all), QStringList{u"b"_s});
    EXPECT_EQ(QDir(parent.filePath(u"a/b"_s)).entryList(all), QStringList{u"favicons"_s});
    for (const QFileInfo &file : QDir(path).entryInfoList(all))
        EXPECT_TRUE(file.isFile()) << qPrintable(file.fileName());
}

TEST_F(IconFolderTest, NoDomainHasNoFile)
{
    folder.write({}, square(Qt::red));
    EXPECT_TRUE(folder.read({}).isNull());
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(IconFolderTest, AFileUnderItsFormerNameIsFoundAndRenamed)
{
    struct
    {
        QString site;
        QString formerName;
    } const cases[] = {
        {u"bücher.de"_s, u"b%C3%BCcher.de.png"_s},
        {u"db.local:5432"_s, u"db.local%3A5432.png"_s},
        {u"::1"_s, u"%3A%3A1.png"_s},
        {u".bashrc"_s, u"%2Ebashrc.png"_s},
    };
    for (const auto &[site, formerName] : cases) {
        ASSERT_TRUE(square(Qt::red).save(path + u'/' + formerName));
        EXPECT_EQ(folder.read(site), square(Qt::red)) << qPrintable(site);
        EXPECT_FALSE(QFile::exists(path + u'/' + formerName)) << qPrintable(site);
        EXPECT_TRUE(QFile::exists(path + u'/' + site + u".png"_s)) << qPrintable(site);
        EXPECT_EQ(folder.read(site), square(Qt::red)) << "from its new name";
    }
}

TEST_F(IconFolderTest, AFormerNameTakesNothingsPlace)
{
    const QString international = u"bücher.de"_s;
    folder.write(international, square(Qt::blue));
    ASSERT_TRUE(square(Qt::red).save(path + u"/b%C3%BCcher.de.png"_s));
    EXPECT_EQ(folder.read(international), square(Qt::blue));
    EXPECT_EQ(files().size(), 2);

    ASSERT_TRUE(QDir(path).mkdir(u"%3A%3A1.png"_s));
    EXPECT_TRUE(folder.read(u"::1"_s).isNull());
    EXPECT_TRUE(QFile::exists(path + u"/%3A%3A1.png"_s));
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
    putFile(u".bashrc.png.abcXYZ"_s, IconFolder::leftoverAge + 1min);
    putFile(u"a\nb.png.abcXYZ"_s, IconFolder::leftoverAge + 1min);
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
