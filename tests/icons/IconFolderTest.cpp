#include "IconFolder.h"

#include "Printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

namespace ostrel::test {

namespace {

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
    [[nodiscard]] QStringList files() const
    {
        return QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir parent;
    QString path = parent.filePath(QStringLiteral("a/b/favicons"));
    IconFolder folder{path};
    const QString domain = QStringLiteral("example.org");
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

TEST_F(IconFolderTest, ANullCharacterEndsNoName)
{
    EXPECT_EQ(IconFolder::fileName(QStringLiteral("a") + QChar(0) + QStringLiteral("b")),
              QStringLiteral("a%00b.png"));
}

TEST_F(IconFolderTest, AnIconIsReadAsItWasWritten)
{
    folder.write(domain, square(Qt::red));
    EXPECT_EQ(folder.read(domain), square(Qt::red));
    EXPECT_EQ(files(), QStringList{QStringLiteral("example.org.png")});
}

TEST_F(IconFolderTest, ANewIconTakesTheOldOnesPlace)
{
    folder.write(domain, square(Qt::red));
    folder.write(domain, square(Qt::blue));
    EXPECT_EQ(folder.read(domain), square(Qt::blue));
    EXPECT_EQ(files().size(), 1);
}

TEST_F(IconFolderTest, AReaderOfTheOldFileKeepsIt)
{
    folder.write(domain, square(Qt::red));
    QFile old(path + QStringLiteral("/example.org.png"));
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

TEST_F(IconFolderTest, WhatIsMissingOrNoFileIsNoIcon)
{
    EXPECT_TRUE(folder.read(domain).isNull());
    ASSERT_TRUE(QDir(path).mkdir(QStringLiteral("example.org.png")));
    EXPECT_TRUE(folder.read(domain).isNull());
}

} // namespace ostrel::test
