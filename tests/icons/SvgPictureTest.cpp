#include "IconFakes.h"
#include "PictureDecoder.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ostrel::test {

namespace {

QByteArray svg(const QByteArray &content)
{
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" )"
           R"(width="32" height="32">)" +
           content + "</svg>";
}

const QByteArray redSquare = R"(<rect width="32" height="32" fill="#ff0000"/>)";

} // namespace

TEST(SvgTest, IsDrawnAtASizeThatSuits)
{
    const QImage image = decodePicture(svg(redSquare));
    EXPECT_EQ(image.size(), QSize(128, 128));
    EXPECT_TRUE(isReddish(centerOf(image)));
    EXPECT_EQ(
        decodePicture(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 60000 30000"/>)")
            .size(),
        QSize(128, 64));
}

TEST(SvgTest, WhatPrecedesTheRootIsPassed)
{
    const QByteArray prologue = "\xef\xbb\xbf<?xml version=\"1.0\"?>\n<!-- made by hand -->\n"
                                "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" "
                                "\"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">\n";
    EXPECT_TRUE(isReddish(centerOf(decodePicture(prologue + svg(redSquare)))));
}

TEST(SvgTest, GradientsClassesAndForeignElementsAreFine)
{
    EXPECT_TRUE(isReddish(centerOf(decodePicture(svg(
        R"(<title>T</title><metadata><x:y xmlns:x="urn:x"><image/></x:y></metadata>)"
        R"(<style>.a{fill:#ff0000}</style><g class="a"><rect width="32" height="32"/></g>)")))));
    EXPECT_TRUE(isReddish(centerOf(decodePicture(svg(
        R"(<defs><linearGradient id="a"><stop offset="0" stop-color="#ff0000"/></linearGradient>)"
        R"(<linearGradient id="b" xlink:href="#a"/></defs>)"
        "<rect width='32' height='32' fill='url(#b)'/>")))));
}

TEST(SvgTest, ATrackingPixelStaysOne)
{
    EXPECT_EQ(
        decodePicture(R"(<svg xmlns="http://www.w3.org/2000/svg" width="1" height="1"/>)").size(),
        QSize(1, 1));
}

namespace {

class HostileSvgTest : public testing::Test
{
protected:
    HostileSvgTest()
    {
        QFile file(picturePath);
        if (file.open(QIODevice::WriteOnly))
            file.write(picture({32, 32}, "png", Qt::blue));
        QFile sheet(sheetPath);
        if (sheet.open(QIODevice::WriteOnly))
            sheet.write("rect{fill:#0000ff}");
    }

    QTemporaryDir folder;
    QString picturePath = folder.filePath(u"secret.png"_s);
    QString sheetPath = folder.filePath(u"secret.css"_s);
};

QByteArray nested(int levels)
{
    return svg(QByteArray("<g>").repeated(levels) + redSquare +
               QByteArray("</g>").repeated(levels));
}

} // namespace

TEST_F(HostileSvgTest, PicturesAreNotLoaded)
{
    for (const QString &address : {picturePath, u"file://"_s + picturePath,
                                   u"https://example.org/a.png"_s, u"data:image/png;base64,AA"_s}) {
        const QByteArray image =
            "<image width='32' height='32' xlink:href='" + address.toUtf8() + "'/>";
        EXPECT_TRUE(decodePicture(svg(redSquare + image)).isNull()) << qPrintable(address);
    }
    EXPECT_TRUE(decodePicture(svg("<x:image xmlns:x='urn:x' width='32' height='32' xlink:href='" +
                                  picturePath.toUtf8() + "'/>" + redSquare))
                    .pixelColor(64, 64) == QColor(Qt::red))
        << "an element of another vocabulary is left out";
}

TEST_F(HostileSvgTest, StyleSheetsAreNotLoaded)
{
    const QByteArray sheet = sheetPath.toUtf8();
    const QByteArray plain = "<rect width='32' height='32' fill='#ff0000'/>";
    const QImage image =
        decodePicture("<?xml-stylesheet type='text/css' href='" + sheet + "'?>" + svg(plain));
    EXPECT_TRUE(isReddish(centerOf(image)));
    EXPECT_TRUE(
        decodePicture(svg("<style>@import url('" + sheet + "');</style>" + plain)).isNull());
}

TEST_F(HostileSvgTest, EntitiesAreRefused)
{
    const QByteArray external = "<!DOCTYPE svg [<!ENTITY e SYSTEM '" + sheetPath.toUtf8() + "'>]>";
    EXPECT_TRUE(decodePicture(external + svg("<title>&e;</title>" + redSquare)).isNull());

    QByteArray bomb = "<!DOCTYPE svg [<!ENTITY a0 'x'>";
    for (int i = 1; i < 40; ++i) {
        const QByteArray last = "&a" + QByteArray::number(i - 1) + ";";
        bomb += "<!ENTITY a" + QByteArray::number(i) + " '" + last + last + "'>";
    }
    EXPECT_TRUE(decodePicture(bomb + "]>" + svg("<title>&a39;</title>" + redSquare)).isNull());
}

TEST_F(HostileSvgTest, WhatCanMultiplyOrMoveIsRefused)
{
    for (const char *element :
         {"<use xlink:href='#a'/>", "<text>A</text>", "<script>1</script>", "<foreignObject/>",
          "<animate attributeName='x' dur='1s'/>", "<set attributeName='x'/>", "<filter id='f'/>",
          "<pattern id='p'/>", "<mask id='m'/>", "<svg/>", "<video/>", "<font/>", "<a/>",
          "<rect width='9' height='9' stroke='red' stroke-dasharray='0.0001'/>",
          "<rect width='9' height='9' style='stroke:red;stroke-DASHarray:0.0001'/>",
          "<style>rect{stroke-d\\61 sharray:0.0001}</style>",
          "<style>rect{stroke-dasharray:0.0001}</style>"})
        EXPECT_TRUE(decodePicture(svg(QByteArray(redSquare) + element)).isNull()) << element;
}

TEST_F(HostileSvgTest, SizeDepthAndNumberAreBounded)
{
    EXPECT_FALSE(decodePicture(nested(30)).isNull());
    EXPECT_TRUE(decodePicture(nested(31)).isNull());
    EXPECT_TRUE(decodePicture(nested(50000)).isNull());

    EXPECT_FALSE(decodePicture(svg(QByteArray("<g/>").repeated(4095))).isNull());
    EXPECT_TRUE(decodePicture(svg(QByteArray("<g/>").repeated(4096))).isNull());

    const QByteArray drawing = svg(redSquare);
    const QByteArray fitting = drawing.leftJustified(262'144, ' ');
    EXPECT_FALSE(decodePicture(fitting).isNull());
    EXPECT_TRUE(decodePicture(fitting + ' ').isNull());

    EXPECT_FALSE(decodePicture(svg("<style>" + QByteArray(4096, ' ') + "</style>")).isNull());
    EXPECT_TRUE(decodePicture(svg("<style>" + QByteArray(4097, ' ') + "</style>")).isNull());
}

TEST_F(HostileSvgTest, WhatWouldTakeMinutesToDrawIsRefused)
{
    const auto path = [](const QByteArray &segment, int count) {
        return "<path stroke='#000' stroke-width='2' d='M0 0" + segment.repeated(count) + "'/>";
    };
    EXPECT_FALSE(decodePicture(svg(path("C9 1 -9 8 31 31", 500))).isNull());
    EXPECT_FALSE(decodePicture(svg(path("C9e5 1 -9e5 8 31 31", 0))).isNull());

    EXPECT_TRUE(decodePicture(svg(path("C9e5 1 -9e5 8 31 31", 10000))).isNull());
    EXPECT_TRUE(
        decodePicture(svg("<g transform='scale(1e5)'>" + path("C9 1 -9 8 31 31", 500) + "</g>"))
            .isNull());
    EXPECT_TRUE(decodePicture("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 1e-3 1e-3'>" +
                              path("C9 1 -9 8 31 31", 500) + "</svg>")
                    .isNull());
    EXPECT_TRUE(decodePicture(svg("<circle r='9' stroke='#000' stroke-width='30000'/>")).isNull());
    EXPECT_TRUE(decodePicture(svg("<polygon points='0 0 1e9 0 0 1e9'/>")).isNull());
    EXPECT_TRUE(decodePicture(svg("<line x2='1e9' y2='1e9' stroke='#000'/>")).isNull());
}

TEST_F(HostileSvgTest, AttributesAreBounded)
{
    const auto attributes = [](int count) {
        QByteArray list;
        for (int i = 0; i < count; ++i)
            list += " a" + QByteArray::number(i) + "=''";
        return list;
    };
    const auto rect = [&](const QByteArray &more) {
        return svg(QByteArray("<rect width='32' height='32'") + more + "/>");
    };
    EXPECT_FALSE(decodePicture(rect(attributes(62))).isNull());
    EXPECT_TRUE(decodePicture(rect(attributes(63))).isNull());
    EXPECT_TRUE(decodePicture(rect(attributes(22000))).isNull());
    EXPECT_FALSE(decodePicture(svg(("<g" + attributes(60) + "/>").repeated(100))).isNull())
        << "each element has its own";
    EXPECT_FALSE(decodePicture(svg("<!--" + QByteArray(80, '=') + "-->")).isNull());
    EXPECT_TRUE(decodePicture(svg("<title><b" + attributes(65) + "/></title>")).isNull())
        << "also in what is left out";
    EXPECT_TRUE(decodePicture("<!DOCTYPE svg [<!ATTLIST g a CDATA 'x'>]>" + svg("<g/>")).isNull())
        << "each element would have them";
}

TEST_F(HostileSvgTest, SelectingIsBounded)
{
    const auto drawing = [](int conditions, int elements, const QByteArray &classes) {
        return svg("<style>" + QByteArray("g{}").repeated(conditions) + "</style>" +
                   ("<g class='" + classes + "'/>").repeated(elements));
    };
    EXPECT_FALSE(decodePicture(drawing(100, 4000, "a")).isNull());
    EXPECT_TRUE(decodePicture(drawing(120, 4000, "a")).isNull());
    EXPECT_FALSE(decodePicture(drawing(1300, 200, "a")).isNull());
    EXPECT_TRUE(decodePicture(drawing(1300, 400, "a")).isNull());
    EXPECT_TRUE(decodePicture(drawing(1300, 1, QByteArray("a ").repeated(5000))).isNull());
    EXPECT_TRUE(decodePicture(svg("<style>" + QByteArray(".a").repeated(1000) + "{}</style>" +
                                  QByteArray("<g class='a'/>").repeated(1000)))
                    .isNull());
    EXPECT_TRUE(decodePicture(svg("<style>g~g{}</style><g/><g/>")).isNull());
}

TEST_F(HostileSvgTest, OutlinesCountForMoreThanFillings)
{
    const auto zigzag = [](const QByteArray &attributes, int points) {
        QByteArray path = "<path " + attributes + " d='M0 0";
        for (int i = 0; i < points; ++i)
            path += (i % 2 == 0 ? "L31 " : "L0 ") + QByteArray::number(i % 31);
        return svg(path + "'/>");
    };
    EXPECT_FALSE(decodePicture(zigzag("", 10000)).isNull());
    EXPECT_FALSE(decodePicture(zigzag("stroke='#000'", 1000)).isNull());
    EXPECT_TRUE(decodePicture(zigzag("stroke='#000'", 7000)).isNull());
}

TEST_F(HostileSvgTest, BrokenDrawingsAreRefused)
{
    const QByteArray drawing = svg(redSquare);
    EXPECT_TRUE(decodePicture(drawing.chopped(1)).isNull());
    EXPECT_TRUE(decodePicture(drawing + drawing).isNull());
    EXPECT_TRUE(decodePicture("<svg").isNull());
    EXPECT_TRUE(decodePicture("<").isNull());
    EXPECT_TRUE(decodePicture("<rect/>").isNull());
    EXPECT_TRUE(decodePicture(R"(<svg xmlns="http://www.w3.org/2000/svg" width="0" height="9"/>)")
                    .isNull());
}

} // namespace ostrel::test
