
#include <QProcess>
#include <QStandardPaths>

#include "tests/app/station/tcp_daemon.h"

namespace vantrace {
namespace {

/// A port that was free a moment ago.
std::uint16_t freePort() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost, 0);
    return server.serverPort();
}

/// One of the real daemons, over the pretended device that comes with them.
class RealDaemon {
  public:
    RealDaemon(const char* program, const QStringList& more = {}) : address{"127.0.0.1", freePort(), {}} {
        m_process.start(
            QString::fromLatin1(program),
            QStringList{"-m", "1", "-T", "127.0.0.1", "-t", QString::number(address.port)} + more);
        m_process.waitForStarted();
    }
    ~RealDaemon() {
        m_process.kill();
        m_process.waitForFinished();
    }
    RealDaemon(const RealDaemon&) = delete;
    RealDaemon& operator=(const RealDaemon&) = delete;

    /// What it answers somebody else.
    std::string ask(const char* command) const {
        QTcpSocket socket;
        socket.connectToHost(QString::fromStdString(address.host), address.port);
        if (!socket.waitForConnected(2000)) return {};
        socket.write(command);
        socket.write("\n");
        QByteArray answer;
        while (!answer.contains("RPRT") && socket.waitForReadyRead(1000)) answer += socket.readAll();
        return answer.toStdString();
    }

    NetworkAddress address;

  private:
    QProcess m_process;
};

void expectSteered(const QStringList& radioOptions, const char* askDownlink, const char* askUplink) {
    for (const char* const program : {"rotctld", "rigctld"}) {
        if (QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty())
            GTEST_SKIP() << program << " is not installed";
    }
    const RealDaemon rotator("rotctld");
    const RealDaemon radio("rigctld", radioOptions);
    TcpDaemon tracker;
    StationOptions options;
    options.line = tracker.address();
    options.rotator = rotator.address;
    options.radio = radio.address;
    NoPasses passes;
    std::ostringstream nothing;
    std::string told;
    StationProgram station(options,
                           {[] { return Instant{}; }, passes,
                            [&](std::string_view text) { told += std::string(text) + "\n"; }, nothing});
    EXPECT_TRUE(eventually([&] {
        tracker.tell("SNNOBODY AZ3.00 EL6.00 UP435001234 DN145801234 DO0\n");
        QTest::qWait(200);
        return radio.ask(askUplink).find("435001234") != std::string::npos &&
               rotator.ask("+p").find("Azimuth: 3.00\nElevation: 6.00") != std::string::npos;
    })) << told
        << rotator.ask("+p") << radio.ask(askUplink);
    EXPECT_NE(radio.ask(askDownlink).find("145801234"), std::string::npos);
    EXPECT_EQ(told.find("refuses"), std::string::npos) << told;
}

TEST(HamlibDaemons, StandAndAreTunedAsTheLineSays) {
    expectSteered({}, "+f", "+i");
}

TEST(HamlibDaemons, ARadioDaemonThatWantsItsVfosNamedIsServedToo) {
    expectSteered({"--vfo"}, "+f VFOA", "+f VFOB");
}

}  // namespace
}  // namespace vantrace
