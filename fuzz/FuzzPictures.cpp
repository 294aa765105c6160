#include "FuzzTarget.h"
#include "PictureDecoder.h"

#include <cstdlib>

std::vector<std::string_view> ostrel::fuzz::dictionary()
{
    using namespace std::string_view_literals;
    return {"\x89PNG\r\n\x1a\n"sv,
            "IHDR"sv,
            "IDAT"sv,
            "zTXt"sv,
            "IEND"sv,
            "GIF89a"sv,
            "\xff\xd8\xff"sv,
            "\xff\xda"sv,
            "RIFF"sv,
            "WEBP"sv,
            "VP8L"sv,
            "\0\0\1\0"sv,
            "BM"sv,
            "\x28\0\0\0"sv,
            "\xff\xff\xff\xff"sv,
            "\0\0\0\0"sv,
            "\0\x08"sv,
            "<svg "sv,
            "<g>"sv,
            "</g>"sv,
            "<path d='M0 0L"sv,
            "1e30 "sv,
            "stroke-width='1e9'"sv,
            "transform='rotate(45) scale(1e9)'"sv,
            "<use "sv,
            "<mask>"sv,
            "<style>"sv,
            "stroke-dasharray:0.0001"sv,
            "stroke-dasharray='none'"sv,
            "/*"sv,
            "*/"sv,
            "xmlns:a='u'"sv,
            "<!ENTITY "sv,
            "a99 99 0 0 1 1 1"sv};
}

// Every decoded picture is within the bounds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace ostrel;
    const QImage picture =
        decodePicture({reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)});
    if (picture.width() > largestPictureSide || picture.height() > largestPictureSide)
        std::abort();
    if (!picture.isNull() && picture.format() != QImage::Format_ARGB32_Premultiplied)
        std::abort();
    return 0;
}
