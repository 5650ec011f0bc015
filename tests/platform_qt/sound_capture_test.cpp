// The sound input on a machine without a sound server; scripts/try-record tries it on one that has one.

#include <QtGlobal>

#include "platform/qt/qt_sound_capture.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(QtSoundCapture, WithoutASoundServerAllFailsAtOnceAndLeavesNothing) {
    const TemporaryFolder folder;
    std::filesystem::current_path(folder.path());
    qputenv("PULSE_SERVER", QByteArray::fromStdString("unix:" + folder.appPath() + "nobody"));
    const auto start = std::chrono::steady_clock::now();
    {
        QtSoundCapture capture;
        EXPECT_TRUE(capture.closeAll()) << "nothing is open";
        EXPECT_FALSE(capture.stop());
        EXPECT_FALSE(capture.open());
        EXPECT_FALSE(capture.seekToStart());
        EXPECT_FALSE(capture.setFormat({}));
        EXPECT_FALSE(capture.record());
        EXPECT_FALSE(capture.stop());
        EXPECT_FALSE(capture.save("sound.wav"));
        EXPECT_FALSE(capture.close());
        EXPECT_TRUE(capture.closeAll());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_TRUE(folder.names().empty());
    std::filesystem::current_path("/");
}

}  // namespace
}  // namespace vantrace
