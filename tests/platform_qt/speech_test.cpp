// Voice and sound input where no daemon serves them, and what the voice consists of; scripts/try-speech has a
// daemon.
#include <sys/socket.h>
#include <sys/un.h>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "platform/file_descriptor.h"
#include "platform/qt/qt_sound_capture.h"
#include "platform/qt/qt_speech.h"
#include "platform/qt/qt_speech_daemon.h"
#include "platform/qt/qt_speech_desk.h"
#include "platform/qt/qt_speech_pace.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

using namespace std::chrono_literals;

class Stopwatch {
  public:
    std::chrono::steady_clock::duration elapsed() const { return std::chrono::steady_clock::now() - m_start; }

  private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// The words per minute that speech-dispatcher makes of a rate, which the engine cuts to a whole hundredth.
double wordsPerMinuteAt(double rate) {
    const int step = static_cast<int>(rate * 100);
    return step < 0 ? 170 + step * 0.90 : 170 + step * 2.79;
}

TEST(SpeechPace, EachSpeedIsSpokenToTheNearestStepAndThoseThatNoEngineHasAtTheEndsOfItsRange) {
    for (int speed = 80; speed <= 250; ++speed) {
        EXPECT_NEAR(wordsPerMinuteAt(speechRate(speed)), speed, speed < 170 ? 0.46 : 1.4);
    }
    EXPECT_EQ(wordsPerMinuteAt(speechRate(80)), 80);
    EXPECT_EQ(wordsPerMinuteAt(speechRate(449)), 449);
    EXPECT_EQ(speechRate(-2147483647), -1);
    EXPECT_EQ(speechRate(0), -1);
    EXPECT_EQ(speechRate(2147483647), 1);
    EXPECT_GT(longestSpeech("twelve", 0), 30s);
    EXPECT_LT(longestSpeech(std::string(10'000'000, 'x'), 80), 3h);
}

TEST(SpeechDesk, TextsComeInOrderAsPlainLinesAndTheOldestGiveWay) {
    SpeechDesk desk(0ms);
    EXPECT_EQ(desk.take(), std::nullopt);
    desk.put("one\r\n.\r\nQUIT\x7f");
    desk.put(" \t\n");
    desk.put("zw\xc3\xb6lf");
    desk.putBack("zero");
    EXPECT_EQ(desk.take(), "zero");
    EXPECT_EQ(desk.take(), "one  .  QUIT ");
    EXPECT_EQ(desk.take(), "zw\xc3\xb6lf");
    EXPECT_EQ(desk.take(), std::nullopt);

    for (std::size_t i = 0; i < SpeechDesk::waitingTexts + 2; ++i) desk.put(std::to_string(i));
    EXPECT_EQ(desk.take(), "2");
}

TEST(SpeechDesk, AWishedVoiceHoldsOnceThereIsOneOfThatNumber) {
    const SpeechFacts three{"engine", "maker", {"a", "b", "c"}, 0};
    SpeechDesk desk(0ms);
    EXPECT_EQ(desk.facts().voice, 0);
    desk.setVoice(3);
    EXPECT_EQ(desk.facts().voice, 0);
    desk.tellFound(three);
    EXPECT_EQ(desk.facts().voice, 3);
    for (const int none : {0, -1, 4}) {
        desk.setVoice(none);
        EXPECT_EQ(desk.voice(), 3);
    }
    desk.setVoice(2);
    desk.tellAbsent();
    EXPECT_EQ(desk.facts().voice, 0);
    desk.tellFound({"engine", "maker", {"a"}, 0});
    EXPECT_EQ(desk.voice(), 1);
    desk.tellFound(three);
    EXPECT_EQ(desk.voice(), 2);
}

TEST(SpeechDesk, WaitsForTheEngineOnceAndNoLongerThanItMust) {
    SpeechDesk silent(100ms);
    const Stopwatch first;
    EXPECT_TRUE(silent.facts().voices.empty());
    EXPECT_GE(first.elapsed(), 100ms);
    const Stopwatch second;
    EXPECT_TRUE(silent.facts().voices.empty());
    EXPECT_LT(second.elapsed(), 90ms);

    SpeechDesk answered(1min);
    std::thread engine([&answered] {
        std::this_thread::sleep_for(20ms);
        answered.tellFound({"engine", "maker", {"a"}, 0});
    });
    EXPECT_EQ(answered.facts().voices.size(), 1U);
    engine.join();
}

/// A socket that is listened to and never answers, like that of a daemon that hangs.
class DeafSocket {
  public:
    explicit DeafSocket(const std::string& path)
        : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
        const auto* const general = static_cast<const sockaddr*>(static_cast<const void*>(&address));
        EXPECT_EQ(::bind(m_socket.get(), general, sizeof(address)), 0) << reasonOf(errno);
        EXPECT_EQ(::listen(m_socket.get(), 1), 0);
    }
    /// Answers one greeting after all.
    void answer() {
        const FileDescriptor connection(::accept(m_socket.get(), nullptr, nullptr));
        char line[64];
        EXPECT_GT(::recv(connection.get(), line, sizeof(line), 0), 0);
        EXPECT_EQ(::send(connection.get(), "231 BYE\r\n", 9, MSG_NOSIGNAL), 9);
    }

  private:
    FileDescriptor m_socket;
};

TEST(SpeechDaemon, HangsWhereASocketIsKeptOpenAndDoesNotAnswerAlone) {
    const TemporaryFolder folder;
    const std::string path = folder.appPath() + "socket";
    EXPECT_FALSE(isSpeechDaemonHanging(path, 1s));
    EXPECT_FALSE(isSpeechDaemonHanging("", 1s));
    EXPECT_FALSE(isSpeechDaemonHanging(std::string(300, 'x'), 1s));
    DeafSocket daemon(path);
    // The second finds the first still waiting, and those after them no more room.
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(isSpeechDaemonHanging(path, 10ms)) << i;
    const std::string other = folder.appPath() + "other";
    DeafSocket alive(other);
    std::thread life([&alive] { alive.answer(); });
    EXPECT_FALSE(isSpeechDaemonHanging(other, 10s));
    life.join();
}

TEST(SpeechDaemon, IsLookedForWhereItsOtherClientsLook) {
    setenv("XDG_RUNTIME_DIR", "/run/user/7", 1);
    unsetenv("SPEECHD_ADDRESS");
    EXPECT_EQ(speechDaemonSocket(), "/run/user/7/speech-dispatcher/speechd.sock");
    setenv("SPEECHD_ADDRESS", "unix_socket:/some/where", 1);
    EXPECT_EQ(speechDaemonSocket(), "/some/where");
    setenv("SPEECHD_ADDRESS", "inet_socket:127.0.0.1:6560", 1);
    EXPECT_EQ(speechDaemonSocket(), "");
    unsetenv("XDG_RUNTIME_DIR");
    setenv("XDG_CACHE_HOME", "/my/cache", 1);
    setenv("SPEECHD_ADDRESS", "unix_socket", 1);
    EXPECT_EQ(speechDaemonSocket(), "/my/cache/speech-dispatcher/speechd.sock");
}

void expectSilence(Speech& speech) {
    const Stopwatch handingOver;
    speech.setSpeed(180);
    speech.setVoice(2);
    for (int i = 0; i < 2000; ++i) speech.speak("The Hubble space telescope is in range now.");
    EXPECT_LT(handingOver.elapsed(), 500ms);
    EXPECT_TRUE(speech.voices().empty());
    EXPECT_EQ(speech.voice(), 0);
    EXPECT_EQ(speech.maker(), "");
}

TEST(QtSpeech, IsSilentAndQuickWhereNoDaemonCanBeReachedAndWhereItHangs) {
    const TemporaryFolder folder;
    const std::string path = folder.appPath() + "socket";
    const DeafSocket daemon(path);
    // An address that no client understands, so that none starts a daemon either; and one that hangs.
    for (const std::string& address : {std::string("nowhere"), "unix_socket:" + path}) {
        SCOPED_TRACE(address);
        setenv("SPEECHD_ADDRESS", address.c_str(), 1);
        const Stopwatch all;
        {
            const QtSpeech unused;
            auto speech = std::make_unique<QtSpeech>();
            expectSilence(*speech);
            const Stopwatch end;
            speech.reset();
            EXPECT_LT(end.elapsed(), address == "nowhere" ? 900ms : 5000ms);
        }
        EXPECT_LT(all.elapsed(), 5s);
    }
}

TEST(QtSpeech, TellsInAWindowThatThereIsNoEngine) {
    setenv("SPEECHD_ADDRESS", "nowhere", 1);
    QtSpeech speech;
    QString title;
    QString text;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return;
        title = box->windowTitle();
        text = box->text();
        box->accept();
    });
    user.start(20);
    speech.showAbout("Speechpack used by Vantrace");
    EXPECT_EQ(title, "Speechpack used by Vantrace");
    EXPECT_EQ(text, "No speech engine was found.");
}

/// scripts/try-record tries the sound input on a machine that has a sound server.
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
