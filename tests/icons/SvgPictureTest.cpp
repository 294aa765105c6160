#include "FileDescriptor.h"
#include "IconFakes.h"
#include "PictureDecoder.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <sys/inotify.h>
#include <unistd.h>

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

TEST(SvgTest, WhatIsNotDrawnIsLeftOutWithAllThatIsInIt)
{
    const QByteArray blueSquare = R"(<rect width="32" height="32" fill="#0000ff"/>)";
    for (const QByteArray element :
         {"clipPath", "use", "symbol", "mask", "text", "filter", "pattern", "marker", "switch",
          "script", "foreignObject", "animate", "set", "image", "video", "font", "a", "svg",
          "made-up"}) {
        const QByteArray leftOut =
            "<" + element + " id='a' xlink:href='#b'>A" + blueSquare + "</" + element + ">";
        EXPECT_EQ(centerOf(decodePicture(svg(redSquare + leftOut))), QColor(Qt::red))
            << element.constData();
        EXPECT_EQ(centerOf(decodePicture(svg("<g>" + leftOut + redSquare + "</g>"))),
                  QColor(Qt::red))
            << element.constData();
    }
}

TEST(SvgTest, WhatRefersToSomethingLeftOutIsDrawnWithoutIt)
{
    EXPECT_EQ(centerOf(decodePicture(svg(
                  "<defs><clipPath id='c'><rect width='1' height='1'/></clipPath>"
                  "<mask id='m'/><filter id='f'><feGaussianBlur stdDeviation='9'/></filter></defs>"
                  "<g clip-path='url(#c)' mask='url(#m)' filter='url(#f)'>" +
                  redSquare + "</g>"))),
              QColor(Qt::red));
}

TEST(SvgTest, ADrawingOfWhichNothingWouldBeLeftIsNone)
{
    EXPECT_TRUE(decodePicture(svg("<text font-size='90'>A</text>")).isNull());
    EXPECT_TRUE(
        decodePicture(svg("<defs><g id='a'>" + redSquare + "</g></defs><use xlink:href='#a'/>"))
            .isNull());
    EXPECT_TRUE(decodePicture(svg("<image width='32' height='32'/><g/>")).isNull());
}

TEST(SvgTest, AScriptMayAssignAsOftenAsItLikes)
{
    const QByteArray script = "<script>" + QByteArray("a = b; ").repeated(200) + "</script>";
    EXPECT_EQ(centerOf(decodePicture(svg(script + redSquare))), QColor(Qt::red));
}

TEST(SvgTest, NamesMayHoldTheWordDash)
{
    for (const QByteArray named :
         {"id='dash'", "class='dashed'", "id='stroke-dasharray'", "data-dash='1'",
          "aria-label='Dashboard 2'", "stroke='#f00' stroke-dashoffset='3'",
          "style='stroke:#f00;stroke-dashoffset:3'"}) {
        const QByteArray square = "<rect width='32' height='32' fill='#ff0000' " + named + "/>";
        EXPECT_EQ(centerOf(decodePicture(svg(square))), QColor(Qt::red)) << named.constData();
    }
    EXPECT_EQ(centerOf(decodePicture(svg("<style>.dash-1, #dash{fill:#ff0000}</style>"
                                         "<rect class='dash-1' width='32' height='32'/>"))),
              QColor(Qt::red));
}

TEST(SvgTest, ADashListWithoutALengthIsAPlainLine)
{
    const auto line = [](const QByteArray &attribute) {
        return decodePicture(
            svg("<path d='M2 16L30 16' stroke='#f00' stroke-width='4' " + attribute + "/>"));
    };
    const QImage plain = line("");
    ASSERT_TRUE(isReddish(centerOf(plain)));
    for (const char *attribute :
         {"stroke-dasharray='none'", "stroke-dasharray=' NONE '", "stroke-dasharray=''",
          "stroke-dasharray='inherit'", "stroke-dasharray='0'", "stroke-dasharray='0, 0.00'",
          "style='stroke-dasharray:none'", "style='stroke-dasharray : none ; stroke:#f00'",
          "style='stroke-dasharray:0;stroke:#f00'", "style='stroke-dasharray:none !important'"})
        EXPECT_EQ(line(attribute), plain) << attribute;
    EXPECT_TRUE(
        isReddish(centerOf(decodePicture(svg("<style>.a{stroke-dasharray:none;fill:#f00}</style>"
                                             "<rect class='a' width='32' height='32'/>")))));
}

TEST(SvgTest, WhatIsAPixelWideByItsOwnAccountStaysSo)
{
    const auto drawn = [](int width, int height) {
        return decodePicture("<svg xmlns='http://www.w3.org/2000/svg' width='" +
                             QByteArray::number(width) + "' height='" + QByteArray::number(height) +
                             "'/>")
            .size();
    };
    EXPECT_EQ(drawn(1, 1), QSize(1, 1));
    EXPECT_EQ(drawn(1, 16), QSize(1, 16));
    EXPECT_EQ(drawn(1, 60000), QSize(1, 128));
    EXPECT_EQ(drawn(2, 2), QSize(128, 128));
    EXPECT_EQ(drawn(16, 1), QSize(128, 8));
    EXPECT_EQ(drawn(2, 60000), QSize(2, 128)) << "wider than a pixel, however high it is";
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

/// Notices whether a file of a folder is opened.
class OpenedFiles
{
public:
    explicit OpenedFiles(const QString &folder)
        : m_events(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        EXPECT_GE(::inotify_add_watch(m_events.number(), QFile::encodeName(folder).constData(),
                                      IN_OPEN | IN_ACCESS),
                  0);
    }

    /// Whether one was since the last call.
    [[nodiscard]] bool any() const
    {
        std::array<char, 4096> events{};
        return ::read(m_events.number(), events.data(), events.size()) > 0;
    }

private:
    FileDescriptor m_events;
};

/// The processor's time since it was made.
class TimeTaken
{
public:
    [[nodiscard]] double seconds() const { return double(std::clock() - m_begin) / CLOCKS_PER_SEC; }

private:
    std::clock_t m_begin = std::clock();
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
        EXPECT_EQ(centerOf(decodePicture(svg(redSquare + image))), QColor(Qt::red))
            << qPrintable(address);
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

TEST_F(HostileSvgTest, NothingThatADrawingNamesIsOpened)
{
    const OpenedFiles opened(folder.path());
    const QByteArray file = "file://" + picturePath.toUtf8();
    const QByteArray sheet = "file://" + sheetPath.toUtf8();
    const QByteArray link = " xlink:href='" + file + "' href='" + file + "' src='" + file + "'";
    const QByteArray url = "url(" + file + ")";
    for (const QByteArray &content : {
             "<image width='32' height='32'" + link + "/>",
             "<use" + link + "/>",
             "<linearGradient id='g'" + link + "/><rect fill='url(#g)' width='9' height='9'/>",
             "<rect width='9' height='9' fill='" + url + "' style='fill:" + url + "'/>",
             "<g clip-path='" + url + "' mask='" + url + "' filter='" + url + "'><path/></g>",
             "<filter id='f'><feImage" + link + "/></filter>",
             "<script" + link + "/><video" + link + "/><a" + link + "/><font-face-uri" + link +
                 "/>",
             "<style>@font-face{font-family:a;src:" + url + "} rect{fill:" + url + "}</style>",
             "<style>@import '" + sheet + "';</style>",
             "<style" + link + "/>",
         }) {
        static_cast<void>(decodePicture(svg(content + redSquare)));
        static_cast<void>(decodePicture("<?xml-stylesheet href='" + sheet +
                                        "'?><!DOCTYPE svg SYSTEM '" + sheet + "'>" +
                                        svg(content + redSquare)));
        EXPECT_FALSE(opened.any()) << content.constData();
    }
    QFile itself(picturePath);
    ASSERT_TRUE(itself.open(QIODevice::ReadOnly));
    EXPECT_TRUE(opened.any());
}

TEST_F(HostileSvgTest, DashesOfAnyLengthAreRefused)
{
    for (const char *element :
         {"<rect width='9' height='9' stroke='red' stroke-dasharray='0.0001'/>",
          "<rect width='9' height='9' stroke='red' stroke-dasharray='0 1'/>",
          "<rect width='9' height='9' stroke='red' stroke-dasharray='none 1'/>",
          "<g stroke-dasharray='1e-9'/>",
          "<rect width='9' height='9' style='stroke:red;stroke-DASHarray:0.0001'/>",
          "<rect width='9' height='9' style='stroke:red;stroke-dasharray : 0.0001;x:0'/>",
          "<rect width='9' height='9' style='stroke:red;stroke-dasharray/**/:0.0001'/>",
          "<rect width='9' height='9' style='stroke:red;stroke-dasharray:/*;*/0.0001'/>",
          "<rect width='9' height='9' style='stroke:red;stroke-dasharray:none;"
          "stroke-dasharray:0.0001'/>",
          "<rect width='9' height='9' style='stroke:red;stroke-dasharray:/*'/>"
          "<rect style='stroke-dasharray:*/1'/>",
          "<rect style='stroke:red;x:/*/;stroke-dasharray:none;/*/stroke-dasharray:0.0001'/>",
          "<style>rect{stroke-d\\61 sharray:0.0001}</style>",
          "<style>rect{stroke-dasharray:0.0001}</style>",
          "<style>rect{stroke-dash<!-- -->array:0.0001}</style>",
          "<style>rect{stroke-dasharray:<![CDATA[0.0001]]>}</style>",
          "<style>rect{stroke-dash<g/>array:0.0001}</style>",
          "<style>rect{stroke-dasharray:/*}*/0.0001}</style>"})
        EXPECT_TRUE(decodePicture(svg(QByteArray(redSquare) + element)).isNull()) << element;
}

TEST_F(HostileSvgTest, UsesThatMultiplyCostNothing)
{
    QByteArray bomb = "<g id='a0'><path d='M0 0L9 9' stroke='#000'/></g>";
    for (int i = 1; i < 60; ++i) {
        const QByteArray last = "<use xlink:href='#a" + QByteArray::number(i - 1) + "'/>";
        bomb += "<g id='a" + QByteArray::number(i) + "'>" + last + last + "</g>";
    }
    const TimeTaken time;
    EXPECT_EQ(
        decodePicture(svg("<defs>" + bomb + "</defs>" + redSquare + "<use xlink:href='#a59'/>"))
            .pixelColor(64, 64),
        QColor(Qt::red));
    EXPECT_LT(time.seconds(), 1);
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

TEST_F(HostileSvgTest, ManyAttributesCostNothing)
{
    QByteArray many;
    for (int i = 0; i < 22000; ++i)
        many += " a" + QByteArray::number(i) + "=''";
    const TimeTaken time;
    for (const QByteArray &drawing : {
             svg("<rect" + many + "/>"),
             svg("<rect d='>'" + many + "/>"),
             svg("<rect d=\"'>'\"" + many + "/>"),
             svg("<unknown" + many + "/>"),
             svg("<title><b" + many + "/></title>"),
             svg("<!-- <a b='--><rect" + many + "/>"),
             "<svg" + many + "/>",
             "<!DOCTYPE svg SYSTEM '<!--'><svg" + many + "/><!-- -->",
             "<!DOCTYPE svg SYSTEM \"<![CDATA[\"><svg" + many + "/><!-- ]]> -->",
             "<?a <?><svg" + many + "/>",
             "<?xml version='1.0'" + many + "?>" + svg(redSquare),
         })
        EXPECT_TRUE(decodePicture(drawing).isNull()) << drawing.left(40).constData();
    // One of them takes most of a second where each of its attributes is compared with all others.
    EXPECT_LT(time.seconds(), 0.5);
}

TEST_F(HostileSvgTest, NamespacesAreBounded)
{
    const auto open = [](int levels, int each) {
        QByteArray elements;
        for (int i = 0; i < levels; ++i) {
            elements += "<g";
            for (int j = 0; j < each; ++j)
                elements += " xmlns:a" + QByteArray::number(i * each + j) + "='u'";
            elements += ">";
        }
        return elements;
    };
    const auto close = [](int levels) { return QByteArray("</g>").repeated(levels); };
    EXPECT_FALSE(decodePicture(svg(open(31, 2) + close(31) + redSquare)).isNull());
    EXPECT_TRUE(decodePicture(svg(open(16, 4) + close(16) + redSquare)).isNull());
    EXPECT_FALSE(decodePicture(svg((open(1, 50) + close(1)).repeated(20) + redSquare)).isNull())
        << "only those that are open at the same time";

    const TimeTaken time;
    EXPECT_TRUE(
        decodePicture(svg("<title>" + open(100, 60) + QByteArray("<a0:b/>").repeated(16000) +
                          close(100) + "</title>" + redSquare))
            .isNull());
    EXPECT_LT(time.seconds(), 0.1) << "each name is looked up among all that are open";
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
