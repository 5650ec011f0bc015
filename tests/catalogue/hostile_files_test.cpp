#include <sys/stat.h>
#include <unistd.h>

#include "catalogue/element_files.h"
#include "catalogue/favourites.h"
#include "catalogue/groups.h"
#include "catalogue/locations.h"
#include "catalogue/satellite_database.h"
#include "core/labels.h"
#include "platform/file_error.h"
#include "tests/catalogue/catalogue_test.h"

namespace vantrace {
namespace {

using namespace std::string_view_literals;

/// Every reader of the catalogue, each with its file.
class HostileFilesTest : public CatalogueTest {
  protected:
    struct Reader {
        const char* file;
        const char* label;  ///< none: the failure goes to the caller
        std::function<void()> read;
    };
    const std::vector<Reader> readers = {
        {"faves.dat", nullptr, [this] { LoadFavourites(state); }},
        {"groups.dat", nullptr, [this] { LoadGroups(state); }},
        {"locations.dat", nullptr, [this] { LoadLocations(state, services.format); }},
        {"satellite.dat", "Global SatelliteDataFunc", [this] { SatelliteDataFunc(state, services, "ISS"); }},
        {"stations.txt", "Global FindFirstKepLine",
         [this] { FindFirstKepLine(state, services, "stations.txt"); }},
        {"gps-ops.txt", "MAIN_FIXGPSKEPS", [this] { FixGPSKeps(state, services); }},
    };

    void expectRefused(const Reader& reader, int times = 1) {
        if (reader.label == nullptr) {
            EXPECT_THROW(reader.read(), FileError) << reader.file;
        } else {
            EXPECT_NO_THROW(reader.read()) << reader.file;
            EXPECT_EQ(fakes.logged(reader.label), times) << reader.file;
        }
    }
};

TEST_F(HostileFilesTest, AFolderOrAPipeInPlaceOfTheFileIsRefusedWithoutWaiting) {
    for (const Reader& reader : readers) {
        const std::filesystem::path file = folder.path() / reader.file;
        std::filesystem::create_directory(file);
        expectRefused(reader, 1);
        EXPECT_TRUE(std::filesystem::remove(file));
        ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
        expectRefused(reader, 2);
    }
}

TEST_F(HostileFilesTest, AFileWithoutPermissionIsRefused) {
    if (geteuid() == 0) GTEST_SKIP() << "nothing is forbidden to root";
    for (const Reader& reader : readers) {
        folder.write(reader.file, "1A;1;2;3\r\n");
        ASSERT_EQ(chmod((folder.path() / reader.file).c_str(), 0), 0);
        expectRefused(reader);
    }
}

TEST_F(HostileFilesTest, AListTooLongToBeOneIsRefusedAndStays) {
    const std::string content(2 << 20, '\n');
    for (const Reader& reader : readers) {
        if (reader.label != nullptr) continue;
        folder.write(reader.file, content);
        expectRefused(reader);
        EXPECT_EQ(folder.read(reader.file).size(), content.size()) << reader.file;
    }
}

TEST_F(HostileFilesTest, AnyBytesAreSurvived) {
    std::mt19937 random(20240320);
    // Signs that mean something to one reader or another, and bytes that mean nothing to any.
    constexpr std::string_view signs = "1 2;,.-()*\r\n\n\0\xff\xfeGPS (PRNISS.9e"sv;
    for (int round = 0; round < 60; ++round) {
        std::string content(random() % 2000, ' ');
        for (char& sign : content) {
            sign = random() % 8 == 0 ? static_cast<char>(random() % 256) : signs[random() % signs.size()];
        }
        for (const Reader& reader : readers) {
            folder.write(reader.file, content);
            try {
                reader.read();
            } catch (const std::out_of_range&) {
                // more lines than the table holds
            }
            EXPECT_GE(state.FavouriteCount, 0);
            EXPECT_GE(state.GroupCount, 0);
        }
    }
}

}  // namespace
}  // namespace vantrace
