#include "host/core/picture_head.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using host::PictureFormat;
using namespace std::string_literals;

std::optional<host::PictureHead> head_of(const std::string& bytes) {
    return host::picture_head({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

}  // namespace

TEST(PictureHead, TellsFormatAndSizeOfWholeAndCutFiles) {
    const std::string fill(64, 'x');
    const struct {
        std::string bytes;
        PictureFormat format;
        unsigned width, height;
    } rows[] = {
        {"\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\1\0\2\0\0\3\4"s, PictureFormat::PNG, 65538, 772},
        {"BM________\x36\0\0\0\x28\0\0\0\x40\0\0\0\xE0\xFF\xFF\xFF"s, PictureFormat::BMP, 64, 32},
        {"BM________\x1A\0\0\0\x0C\0\0\0\x40\0\x20\0____"s, PictureFormat::BMP, 64, 32},
        {"RIFF____WEBPVP8X____\0\0\0\0\xFF\x3F\0\x0F\0\0"s, PictureFormat::WEBP, 16384, 16},
        {"RIFF____WEBPVP8L____\x2F\x63\xC0\x18\0____"s + fill, PictureFormat::WEBP, 100, 100},
        {"RIFF____WEBPVP8 ____\0\0\0\x9D\x01\x2A\x64\0\x32\0"s, PictureFormat::WEBP, 100, 50},
        {"\xFF\xD8\xFF\xE0\0\4ab\xFF\xFF\xC4\0\2\xFF\xC2\0\x11\x08\1\2\3\4"s + fill, PictureFormat::JPEG, 772, 258},
        {"\0\0\x0A\0\0\0\0\0\0\0\0\0\x40\0\x20\0\x18\0"s, PictureFormat::TGA, 64, 32},
    };
    for (const auto& row : rows) {
        const auto head = head_of(row.bytes);
        ASSERT_TRUE(head) << row.bytes;
        EXPECT_EQ(head->format, row.format) << row.bytes;
        EXPECT_EQ(head->width, row.width) << row.bytes;
        EXPECT_EQ(head->height, row.height) << row.bytes;
        // The sanitizers watch that none reads behind its end.
        for (std::size_t length = 0; length < row.bytes.size(); ++length) head_of(std::string(row.bytes, 0, length));
    }
    for (const std::string& bytes :
         {""s, fill, "GIF89a"s + fill, "\xFF\xD8"s + fill, "\xFF\xD8"s + std::string(64, '\xFF'),
          "\0\0\x02\0\0\0\0\0\0\0\0\0\x40\0\x20\0\x18\0"s}) {
        EXPECT_FALSE(head_of(bytes)) << bytes;
    }
}

TEST(PictureHead, TellsWhetherAllPartsOfAPictureAreThere) {
    const std::string head = "\x89PNG\r\n\x1A\n"s, size = "\0\0\0\rIHDR\0\1\0\2\0\0\3\4\x8\2\0\0\0sums"s;
    const std::string end = "\0\0\0\0IENDsums"s;
    const auto whole = [&](const std::string& parts) {
        const std::string bytes = head + size + parts;
        const std::span content(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        return host::is_whole(*host::picture_head(content), content);
    };
    EXPECT_TRUE(whole(end));
    EXPECT_TRUE(whole("\0\0\0\3tEXTabcsums"s + end + "behind"));
    EXPECT_FALSE(
        whole("\x7F\xFF\xFF\xFF"
              "bKGDsums"s))
        << "the decoder would read on for ever";
    for (std::size_t length = 0; length < end.size(); ++length) EXPECT_FALSE(whole(end.substr(0, length))) << length;
}
