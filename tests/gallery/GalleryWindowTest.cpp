#include "GalleryWindow.h"

#include "GalleryGesture.h"
#include "Printers.h"

#include <QDir>
#include <QImage>
#include <QQuickItem>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QString withoutGesture(const QString &page)
{
    return page.section(u'+', 0, 0);
}

QSet<QString> filesOfPages()
{
    QSet<QString> files;
    for (const QString &page : galleryPages())
        files.insert(page.section(u'-', 0, 0) + u".qml"_s);
    return files;
}

class GestureTest : public testing::TestWithParam<std::string>
{
};

std::string nameOf(const testing::TestParamInfo<std::string> &param)
{
    QString name = QString::fromStdString(param.param);
    for (QChar &character : name) {
        if (!character.isLetterOrNumber())
            character = u'_';
    }
    return name.toStdString();
}

std::vector<std::string> gestures()
{
    std::vector<std::string> names;
    for (const QString &sample : GalleryGesture::windowSamples())
        names.push_back(sample.toStdString());
    return names;
}

} // namespace

TEST(GalleryWindowTest, EveryPageOpens)
{
    QSet<QString> pages;
    for (const QString &page : galleryPages())
        pages.insert(withoutGesture(page));
    ASSERT_FALSE(pages.isEmpty());
    for (const QString &page : pages)
        EXPECT_TRUE(GalleryWindow(page).isUsable()) << qPrintable(page);
}

TEST(GalleryWindowTest, EveryPagesFileIsShown)
{
    const QSet<QString> shown = filesOfPages();
    const QStringList files =
        QDir(u":/qt/qml/Ostrel/Gallery"_s).entryList({u"*Page.qml"_s}, QDir::Files);
    EXPECT_EQ(files.size(), shown.size());
    for (const QString &file : files)
        EXPECT_TRUE(shown.contains(file)) << qPrintable(file);
}

TEST(GalleryWindowTest, EveryPageHasANameOfItsOwn)
{
    const QStringList pages = galleryPages();
    EXPECT_EQ(QSet<QString>(pages.begin(), pages.end()).size(), pages.size());
}

TEST(GalleryWindowTest, OtherNamesHaveNoPage)
{
    for (const char *name : {"", "NoPage", "DetailPage", "DetailPage-sideways",
                             "WindowPage-one-down+dance", "GallerySection"})
        EXPECT_FALSE(GalleryWindow(QString::fromLatin1(name)).isUsable()) << name;
}

TEST_P(GestureTest, CanBeSeen)
{
    GalleryWindow window(u"WindowPage-"_s + QString::fromStdString(GetParam()));
    ASSERT_TRUE(window.isUsable());
    window.show();
    window.awaitActive();
    window.grabWindow();
    const QImage before = window.grabWindow();
    window.performGesture();
    EXPECT_NE(window.grabWindow(), before);
}

INSTANTIATE_TEST_SUITE_P(Window, GestureTest, testing::ValuesIn(gestures()), nameOf);

} // namespace ostrel::test
