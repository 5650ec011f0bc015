// Pictures as files, and those that the program brings with it.

#include <QBuffer>
#include <QImage>

#include "platform/file_error.h"
#include "platform/qt/qt_pictures.h"
#include "tests/support/surface_pictures.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr std::uint32_t black = 0xFF000000;
constexpr std::uint32_t white = 0xFFFFFFFF;

struct BuiltIn {
    std::string name;
    int size;
};

std::vector<BuiltIn> builtInPictures() {
    std::vector<BuiltIn> pictures{{"sun", 30}, {"moon", 20}, {"moon_large", 30}};
    for (int index = 0; index < 6; ++index) pictures.push_back({"satellite_" + std::to_string(index), 32});
    return pictures;
}

/// A file of random pixels in one of Qt's formats.
std::string fileOf(int width, int height, const char* format) {
    const Surface pixels = noise(width, height, 1);
    const QImage image(reinterpret_cast<const uchar*>(pixels.words().data()), width, height,
                       QImage::Format_RGB32);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes.toStdString();
}

/// A JPEG whose header tells another size than it has.
std::string jpegThatClaims(unsigned size) {
    std::string bytes = fileOf(16, 16, "JPG");
    const std::size_t header = bytes.find("\xFF\xC0");
    EXPECT_NE(header, std::string::npos);
    for (const std::size_t place : {header + 5, header + 7}) {
        bytes.at(place) = static_cast<char>(size >> 8U);
        bytes.at(place + 1) = static_cast<char>(size & 0xFFU);
    }
    return bytes;
}

TEST(BuiltInPictures, AreThereForEachDensity) {
    QtPictures pictures;
    for (const BuiltIn& picture : builtInPictures()) {
        for (const std::string ending : {"", "_mask"}) {
            for (const auto& [ratio, density] :
                 {std::pair{1.0, 1}, {1.25, 2}, {2.0, 2}, {3.0, 3}, {4.0, 3}}) {
                const Surface surface = pictures.builtIn(picture.name + ending, ratio);
                EXPECT_EQ(surface.deviceWidth(), picture.size * density) << picture.name << ending << ratio;
                EXPECT_EQ(surface.deviceHeight(), picture.size * density) << picture.name << ending << ratio;
                EXPECT_EQ(surface.width(), picture.size) << picture.name << ending << ratio;
            }
        }
    }
    for (const char* const name : {"", "mars", "satellite_6", "sun.png", "sun@2x", "../art/splash"})
        EXPECT_THROW(pictures.builtIn(name, 1), std::invalid_argument) << name;
}

TEST(BuiltInPictures, AreBlackJustWhereTheirMasksAreWhite) {
    QtPictures pictures;
    for (const BuiltIn& picture : builtInPictures()) {
        for (const int density : {1, 2, 3}) {
            SCOPED_TRACE(picture.name + " x" + std::to_string(density));
            const std::vector<std::uint32_t> sprite = wordsOf(pictures.builtIn(picture.name, density));
            const std::vector<std::uint32_t> mask =
                wordsOf(pictures.builtIn(picture.name + "_mask", density));
            ASSERT_EQ(sprite.size(), mask.size());
            EXPECT_TRUE(std::all_of(mask.begin(), mask.end(),
                                    [](std::uint32_t word) { return word == black || word == white; }));
            for (std::size_t index = 0; index < mask.size(); ++index)
                ASSERT_EQ(sprite[index] == black, mask[index] == white) << index;
            const auto shown = std::count(mask.begin(), mask.end(), black);
            EXPECT_GT(shown * 5, static_cast<std::ptrdiff_t>(mask.size())) << "hardly anything to see";
        }
    }
}

TEST(QtPictures, ReadsWhatItWrote) {
    const TemporaryFolder folder;
    QtPictures pictures;
    const Surface surface = noise(37, 21, 2, 2);
    const std::filesystem::path file = folder.path() / "frame.png";
    pictures.save(surface, file);
    const Surface loaded = pictures.load(file);
    EXPECT_EQ(wordsOf(loaded), wordsOf(surface));
    EXPECT_EQ(loaded.width(), 37);
    EXPECT_EQ(loaded.devicePixelsPerPixel(), 1);
    EXPECT_THROW(pictures.save(surface, folder.path() / "none" / "frame.png"), FileError);
    EXPECT_EQ(folder.names(), Texts{"frame.png"});
}

TEST(QtPictures, KnowsAPictureByItsContent) {
    const TemporaryFolder folder;
    QtPictures pictures;
    folder.write("whole.jpg", fileOf(24, 16, "JPG"));
    folder.write("more.jpg", fileOf(24, 16, "JPG") + "and some bytes more");
    folder.write("png.jpg", fileOf(24, 16, "PNG"));
    for (const std::string& name : folder.names()) {
        const Surface surface = pictures.load(folder.path() / name);
        EXPECT_EQ(surface.width(), 24) << name;
        EXPECT_EQ(surface.height(), 16) << name;
    }
}

TEST(QtPictures, RefusesWhatIsNoPicture) {
    const TemporaryFolder folder;
    const std::string jpeg = fileOf(64, 64, "JPG");
    const std::string png = fileOf(64, 64, "PNG");
    for (const std::size_t percent : {1U, 20U, 60U, 99U}) {
        folder.write("cut " + std::to_string(percent) + ".jpg", jpeg.substr(0, jpeg.size() * percent / 100));
        folder.write("cut " + std::to_string(percent) + ".png", png.substr(0, png.size() * percent / 100));
    }
    folder.write("without its last byte.jpg", jpeg.substr(0, jpeg.size() - 1));
    folder.write("empty.jpg", "");
    folder.write("text.jpg", "This is no picture.\n");
    folder.write("drawing.jpg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"8\" height=\"8\"/>");
    folder.write("bitmap.jpg", fileOf(8, 8, "BMP"));
    folder.write("too wide.jpg", jpegThatClaims(65500));
    folder.write("too many pixels.jpg", jpegThatClaims(30000));
    folder.write("folder.jpg/file", "");
    QtPictures pictures;
    for (const std::string& name : folder.names())
        EXPECT_THROW(pictures.load(folder.path() / name), FileError) << name;
    EXPECT_THROW(pictures.load(folder.path() / "none.jpg"), FileError);
}

/// The brightness that contrasts are told by (WCAG 2), 0 to 1.
double luminance(std::uint32_t word) {
    // By a table, since maps have millions of pixels.
    static const std::vector<double> light = [] {
        std::vector<double> table;
        for (int level = 0; level < 256; ++level) {
            const double value = level / 255.0;
            table.push_back(value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4));
        }
        return table;
    }();
    const auto linear = [word](unsigned channel) { return light[channelOf(word, channel)]; };
    return 0.2126 * linear(2) + 0.7152 * linear(1) + 0.0722 * linear(0);
}

double contrast(double one, double other) {
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

/// The mean of a map's rows, as it looks on the night side.
double nightLuminance(const Surface& map, int firstRow, int rows) {
    constexpr unsigned ofDay = 215;
    const std::vector<std::uint32_t> words = cut(map, 0, firstRow, map.deviceWidth(), rows);
    double sum = 0;
    for (const std::uint32_t word : words) {
        std::uint32_t dark = 0;
        for (const unsigned channel : {0U, 1U, 2U})
            dark |= channelOf(word, channel) * ofDay / 255 << (8 * channel);
        sum += luminance(dark);
    }
    return sum / static_cast<double>(words.size());
}

TEST(ShippedMaps, HaveEdgesThatPrintCanBeReadOn) {
    QtPictures pictures;
    for (const char* const name : {"Default.jpg", "Political.jpg", "Midnight.jpg"}) {
        SCOPED_TRACE(name);
        const Surface map = pictures.load(std::filesystem::path(VANTRACE_DATA_FOLDER) / name);
        EXPECT_EQ(map.deviceWidth(), 2 * map.deviceHeight());
        EXPECT_GE(map.deviceWidth(), 2048);
        // A line of print is at most 20 of 704 pixels high, and blue above, black below.
        const int rows = map.deviceHeight() * 20 / 704;
        EXPECT_GT(contrast(nightLuminance(map, 0, rows), luminance(0x0000FF)), 3.0);
        EXPECT_GT(contrast(nightLuminance(map, map.deviceHeight() - rows, rows), luminance(black)), 7.0);
    }
}

/// How many of a picture's pixels, from 0 to 1, don't stand out so much from print of that colour.
double shareUnreadable(const std::vector<std::uint32_t>& words, std::uint32_t print, double least) {
    const double ink = luminance(print);
    const auto count = std::count_if(words.begin(), words.end(), [&](std::uint32_t word) {
        return contrast(luminance(word), ink) < least;
    });
    return static_cast<double>(count) / static_cast<double>(words.size());
}

class ShippedLandscape : public testing::Test {
  protected:
    std::vector<std::uint32_t> rows(int first, int count) const {
        return cut(landscape, 0, first, landscape.deviceWidth(), count);
    }
    std::vector<std::uint32_t> column(int x) const {
        return cut(landscape, x, 0, 1, landscape.deviceHeight());
    }

    const Surface landscape = QtPictures().load(std::filesystem::path(VANTRACE_DATA_FOLDER) / "hdefault.jpg");
    const std::uint32_t yellow = 0xFFFF00;
    const std::uint32_t green = 0x00FF00;
};

TEST_F(ShippedLandscape, LeavesPrintReadable) {
    ASSERT_GE(landscape.deviceWidth(), 1920);
    ASSERT_GE(landscape.deviceHeight(), 1080);
    // In a small window, 400 pixels high: the status line of 15, and the words down to 55.
    const int statusRows = landscape.deviceHeight() * 15 / 400;
    const int wordRows = landscape.deviceHeight() * 55 / 400;
    const std::vector<std::uint32_t> bottom = rows(landscape.deviceHeight() - statusRows, statusRows);
    for (const std::uint32_t print : {green, white, yellow}) {
        EXPECT_EQ(shareUnreadable(bottom, print, 4.5), 0) << std::hex << print;
        EXPECT_LT(shareUnreadable(bottom, print, 10), 0.02) << std::hex << print;
    }
    // Stars are so bright, but there are not many.
    EXPECT_LT(shareUnreadable(rows(0, wordRows), yellow, 10), 0.01);
    const std::vector<std::uint32_t> all = rows(0, landscape.deviceHeight());
    EXPECT_LT(shareUnreadable(all, green, 3), 0.002) << "dots of a track";
    EXPECT_LT(shareUnreadable(all, white, 4.5), 0.002) << "names";
}

TEST_F(ShippedLandscape, JoinsAtNorth) {
    const auto difference = [](const std::vector<std::uint32_t>& one,
                               const std::vector<std::uint32_t>& other) {
        double sum = 0;
        for (std::size_t row = 0; row < one.size(); ++row) {
            for (const unsigned channel : {0U, 1U, 2U})
                sum += std::abs(static_cast<double>(channelOf(one[row], channel)) -
                                static_cast<double>(channelOf(other[row], channel)));
        }
        return sum / static_cast<double>(one.size() * 3);
    };
    const int right = landscape.deviceWidth() - 1;
    constexpr double oneColumnOn = 2;
    EXPECT_LT(difference(column(right), column(0)), oneColumnOn);
    EXPECT_GT(difference(column(right), column(right / 2)), oneColumnOn) << "a sky without any sides";
}

}  // namespace
}  // namespace vantrace
