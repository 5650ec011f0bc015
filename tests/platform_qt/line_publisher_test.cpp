#include <sys/stat.h>

#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include "platform/qt/qt_line_publisher.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

std::uint16_t freePort() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

class LinePublisherTest : public ::testing::Test {
  protected:
    LinePublisherTest() : places{freePort(), folder.path() / "line"}, publisher(places) {}

    bool connectTo(QTcpSocket& socket) const {
        // The publisher opens its port on another thread.
        for (int i = 0; i < 50; ++i) {
            socket.connectToHost(QHostAddress::LocalHost, places.port);
            if (socket.waitForConnected(1000)) return true;
            QTest::qSleep(20);
        }
        return false;
    }
    void connectTo(QLocalSocket& socket) const {
        for (int i = 0; i < 50 && socket.state() != QLocalSocket::ConnectedState; ++i) {
            socket.connectToServer(QString::fromStdString(places.socket.string()));
            if (!socket.waitForConnected(1000)) QTest::qSleep(20);
        }
    }
    /// Connects, and hears this line first.
    void join(QTcpSocket& socket, const QByteArray& line) const {
        ASSERT_TRUE(connectTo(socket));
        EXPECT_EQ(heard(socket, "\n"), line + "\n");
    }
    /// What comes until a line with this end.
    static QByteArray heard(QIODevice& device, const QByteArray& end) {
        QByteArray text;
        QElapsedTimer clock;
        clock.start();
        while (!text.endsWith(end) && clock.elapsed() < 5000) {
            if (device.bytesAvailable() == 0) device.waitForReadyRead(100);
            text += device.readAll();
        }
        return text;
    }

    TemporaryFolder folder;
    LinePlaces places;
    QtLinePublisher publisher;
};

TEST_F(LinePublisherTest, NoPlaceIsOpenBeforeThereIsALine) {
    publisher.publish("");
    QTest::qSleep(100);
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, places.port);
    EXPECT_FALSE(socket.waitForConnected(1000));
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(LinePublisherTest, ANewClientGetsThePresentLineAndAllLater) {
    publisher.publish("SNISS AZ1.00");
    QTcpSocket socket;
    join(socket, "SNISS AZ1.00");
    publisher.publish("two\nlines");
    EXPECT_EQ(heard(socket, "\n"), "two lines\n");
    QLocalSocket local;
    connectTo(local);
    EXPECT_EQ(heard(local, "\n"), "two lines\n");
    struct stat status {};
    ASSERT_EQ(stat(places.socket.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0077U, 0U) << "for this user alone";
    publisher.publish(std::string(5000, 'x'));
    EXPECT_EQ(heard(socket, "\n").size(), 1001);
    EXPECT_EQ(heard(local, "\n").size(), 1001);
}

TEST_F(LinePublisherTest, AnEmptyLineTellsOnceThatTheLineIsOff) {
    publisher.publish("on");
    QTcpSocket first;
    join(first, "on");
    publisher.publish("");
    EXPECT_EQ(heard(first, "\n"), "\n");
    publisher.publish("");
    QTcpSocket second;
    ASSERT_TRUE(connectTo(second));
    EXPECT_FALSE(second.waitForReadyRead(200));
    publisher.publish("on again");
    EXPECT_EQ(heard(first, "\n"), "on again\n");
    EXPECT_EQ(heard(second, "\n"), "on again\n");
}

TEST_F(LinePublisherTest, ALineThatHasGrownOldIsToldToNobodyWhoComes) {
    places.lineLife = std::chrono::milliseconds(200);
    places.port = freePort();
    places.socket.clear();
    QtLinePublisher forgetful(places);
    forgetful.publish("old");
    QTcpSocket early;
    ASSERT_TRUE(connectTo(early));
    QTest::qSleep(400);
    QTcpSocket late;
    ASSERT_TRUE(connectTo(late));
    EXPECT_FALSE(late.waitForReadyRead(200)) << late.readAll().toStdString();
    forgetful.publish("new");
    EXPECT_EQ(heard(late, "\n"), "new\n");
    EXPECT_TRUE(heard(early, "new\n").endsWith("new\n"));
}

TEST_F(LinePublisherTest, ASlowClientHoldsNobodyUpAndGetsTheNewestLineWhole) {
    publisher.publish("start");
    QTcpSocket slow;
    slow.setReadBufferSize(1);
    ASSERT_TRUE(connectTo(slow));
    QTcpSocket quick;
    join(quick, "start");
    constexpr int lines = 20'000;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < lines; ++i) {
        publisher.publish(std::to_string(i) + " " + std::string(500, 'x'));
        if (i % 50 == 0) heard(quick, "\n");
    }
    publisher.publish("newest");
    // All lines before it may have been skipped, or read in the loop.
    EXPECT_TRUE(heard(quick, "newest\n").endsWith("newest\n"));
    EXPECT_LT(clock.elapsed(), 20'000);
    // Now he reads.
    slow.setReadBufferSize(0);
    const QByteArray all = heard(slow, "\nnewest\n");
    const QList<QByteArray> told = all.trimmed().split('\n');
    EXPECT_EQ(told.first(), "start");
    EXPECT_EQ(told.last(), "newest");
    int last = -1;
    for (const QByteArray& line : told.sliced(1, told.size() - 2)) {
        const int number = line.left(line.indexOf(' ')).toInt();
        EXPECT_GT(number, last);
        last = number;
        EXPECT_EQ(line, QByteArray::number(number) + " " + QByteArray(500, 'x')) << "no line is cut";
    }
}

TEST_F(LinePublisherTest, WhoTalksMuchIsCutOffAndTheOthersStay) {
    publisher.publish("one");
    QTcpSocket listener;
    join(listener, "one");
    QTcpSocket talker;
    ASSERT_TRUE(connectTo(talker));
    talker.write("GET / HTTP/1.1\r\n\r\n");
    publisher.publish("two");
    EXPECT_TRUE(heard(talker, "two\n").endsWith("two\n")) << "a few words are no harm";
    while (talker.state() == QAbstractSocket::ConnectedState && talker.write(QByteArray(65536, 'x')) > 0) {
        talker.waitForBytesWritten(1000);
    }
    EXPECT_NE(talker.state(), QAbstractSocket::ConnectedState);
    publisher.publish("three");
    EXPECT_TRUE(heard(listener, "three\n").endsWith("three\n"));
}

TEST_F(LinePublisherTest, OnlySoManyAreServed) {
    publisher.publish("line");
    std::vector<std::unique_ptr<QTcpSocket>> sockets;
    for (int i = 0; i < 40; ++i) {
        sockets.push_back(std::make_unique<QTcpSocket>());
        ASSERT_TRUE(connectTo(*sockets.back()));
    }
    int served = 0;
    for (const auto& socket : sockets) {
        if (socket->bytesAvailable() > 0 || socket->waitForReadyRead(200)) ++served;
    }
    EXPECT_EQ(served, 16);
    sockets.clear();
    QTest::qSleep(100);
    QTcpSocket later;
    join(later, "line");  // their places are free again
}

TEST_F(LinePublisherTest, APlaceThatIsTakenIsDoneWithout) {
    publisher.publish("first");
    QTcpSocket socket;
    ASSERT_TRUE(connectTo(socket));
    Texts told;
    QtLinePublisher other(places, [&](std::string_view text) { told.emplace_back(text); });
    other.publish("second");
    QTest::qSleep(300);
    other.publish("second");
    other.publish("second");
    ASSERT_EQ(told.size(), 2U) << "once for each place";
    EXPECT_NE(told[0].find("port " + std::to_string(places.port)), std::string::npos) << told[0];
    EXPECT_NE(told[1].find(places.socket.string()), std::string::npos) << told[1];
    QLocalSocket local;
    connectTo(local);
    EXPECT_EQ(heard(local, "\n"), "first\n") << "and the other copy keeps its own";
}

TEST_F(LinePublisherTest, TheSocketOfADeadProgramIsReplaced) {
    {
        // What a killed program leaves: a socket that nobody serves.
        QLocalServer dead;
        ASSERT_TRUE(dead.listen(QString::fromStdString((folder.path() / "dead").string())));
        std::filesystem::rename(folder.path() / "dead", places.socket);
    }
    publisher.publish("alive");
    QLocalSocket local;
    connectTo(local);
    EXPECT_EQ(heard(local, "\n"), "alive\n");
}

}  // namespace
}  // namespace vantrace
