#include "FaviconImage.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace ostrel {
namespace {

constexpr int side = 40;

QImage pictureOf(const char *address)
{
    FaviconImage icon;
    icon.setSize(QSizeF(side, side));
    icon.setUrlString(QString::fromUtf8(address));
    icon.setProperty("radius", 8);
    icon.setProperty("plateColor", QColor(Qt::yellow));
    icon.setProperty("letterColor", QColor(Qt::blue));
    icon.setProperty("letterSize", 18);
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    icon.paint(&painter);
    return picture;
}

/// The bounds of the pixels of @p picture that the letter covers fully.
QRect letterIn(const QImage &picture)
{
    QRect covered;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            if (picture.pixelColor(x, y) == QColor(Qt::blue))
                covered |= QRect(x, y, 1, 1);
        }
    }
    return covered;
}

TEST(FaviconImageTest, WithoutAnIconALetterIsInTheMiddleOfARoundedPlate)
{
    const QImage picture = pictureOf("https://shop.example/path");
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0) << "the corner is round";
    EXPECT_EQ(picture.pixelColor(2, side / 2), QColor(Qt::yellow));
    const QRect letter = letterIn(picture);
    EXPECT_NEAR(letter.height(), 13, 3);
    EXPECT_NEAR(letter.center().x(), side / 2, 1.5);
    EXPECT_NEAR(letter.center().y(), side / 2, 1.5);
}

TEST(FaviconImageTest, EverySiteHasItsLetter)
{
    EXPECT_EQ(pictureOf("https://shop.example"), pictureOf("http://www.shop.example/other"));
    EXPECT_NE(pictureOf("https://shop.example"), pictureOf("https://mail.example"));
    EXPECT_NE(pictureOf("db.local"), pictureOf("https://db.local")) << "without a scheme it is '?'";
}

} // namespace
} // namespace ostrel
