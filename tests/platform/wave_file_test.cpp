#include "platform/wave_file.h"

#include <signal.h>
#include <sys/resource.h>

#include <cstring>
#include <numeric>

#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

using Samples = std::vector<std::uint8_t>;

Samples ramp(std::size_t size) {
    Samples samples(size);
    std::iota(samples.begin(), samples.end(), std::uint8_t{0});
    return samples;
}

std::uint32_t number(const std::string& bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    while (size-- > 0) value = value << 8 | static_cast<std::uint8_t>(bytes.at(at + size));
    return value;
}

/// What a player finds in it, going from chunk to chunk. The test fails where the file is none.
Samples played(const std::string& file) {
    EXPECT_EQ(file.substr(0, 4) + file.substr(8, 4), "RIFFWAVE");
    EXPECT_LE(8 + number(file, 4, 4), file.size());
    EXPECT_EQ(number(file, 4, 4) % 2, 0u);
    for (std::size_t at = 12; at + 8 <= file.size();) {
        const std::uint32_t size = number(file, at + 4, 4);
        EXPECT_LE(at + 8 + size, 8 + number(file, 4, 4));
        if (file.substr(at, 4) == "data") {
            const std::string data = file.substr(at + 8, size);
            return {data.begin(), data.end()};
        }
        at += 8 + size + size % 2;
    }
    ADD_FAILURE() << "no samples";
    return {};
}

class WaveFileTest : public ::testing::Test {
  protected:
    std::string content() const { return folder.read("sound.wav"); }

    TemporaryFolder folder;
    WaveFile file{folder.path() / "sound.wav", CaptureFormat{}};
};

TEST_F(WaveFileTest, TellsItsFormat) {
    const std::string header = content();
    ASSERT_EQ(header.size(), 44u);
    EXPECT_EQ(header.substr(12, 4), "fmt ");
    EXPECT_EQ(number(header, 20, 2), 1u) << "uncompressed";
    EXPECT_EQ(number(header, 22, 2), 1u) << "channels";
    EXPECT_EQ(number(header, 24, 4), 11025u) << "samples a second";
    EXPECT_EQ(number(header, 28, 4), 11025u) << "bytes a second";
    EXPECT_EQ(number(header, 32, 2), 1u) << "bytes of a sample";
    EXPECT_EQ(number(header, 34, 2), 8u) << "bits";
    EXPECT_EQ(played(header), Samples{});
}

TEST_F(WaveFileTest, PlaysWholeAfterEachPart) {
    const Samples all = ramp(1000);
    std::size_t size = 0;
    for (const std::size_t part : {1u, 2u, 1u, 256u, 0u, 333u, 7u}) {
        EXPECT_TRUE(file.append(std::span(all).subspan(size, part)));
        size += part;
        EXPECT_EQ(played(content()), Samples(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(size)));
        EXPECT_EQ(file.sizeBytes(), size);
    }
}

TEST_F(WaveFileTest, AFullDiskEndsTheGrowthAndWhatFittedPlays) {
    signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit full{1001, before.rlim_max};
    EXPECT_TRUE(file.append(ramp(501)));
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    const bool isWhole = file.append(ramp(600));
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_FALSE(isWhole);
    EXPECT_FALSE(file.append(ramp(1))) << "a gap would spoil the timing";
    Samples expected = ramp(501);
    const Samples rest = ramp(456);
    expected.insert(expected.end(), rest.begin(), rest.end());
    // The last of the 957 that fitted has no room for the byte behind it.
    expected.pop_back();
    EXPECT_EQ(played(content()), expected);
    EXPECT_EQ(content().size(), 44 + expected.size());
}

TEST_F(WaveFileTest, ARenamedFileTakesThePlaceOfAnotherAndGoesOnGrowing) {
    folder.write("old.wav", "old");
    file.append(ramp(10));
    EXPECT_TRUE(file.renameTo(folder.path() / "old.wav"));
    file.append(ramp(10));
    EXPECT_FALSE(folder.exists("sound.wav"));
    EXPECT_EQ(played(folder.read("old.wav")).size(), 20u);
    folder.write("full/inside", "");
    EXPECT_FALSE(file.renameTo(folder.path() / "full"));
    EXPECT_EQ(file.path(), folder.path() / "old.wav");
}

TEST_F(WaveFileTest, NoFileIsOverwrittenByANewOne) {
    file.append(ramp(10));
    EXPECT_THROW(WaveFile(folder.path() / "sound.wav", CaptureFormat{}), FileError);
    EXPECT_EQ(played(content()).size(), 10u);
    EXPECT_THROW(WaveFile(folder.path() / "nowhere" / "sound.wav", CaptureFormat{}), FileError);
}

}  // namespace
}  // namespace vantrace
