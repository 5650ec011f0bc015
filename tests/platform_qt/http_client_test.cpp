#include <gtest/gtest.h>

#include <QByteArray>
#include <chrono>
#include <string>

#include "platform/qt/qt_http_client.h"
#include "tests/support/loopback_server.h"
#include "tests/support/temporary_folder.h"

namespace vantrace {
namespace {

using namespace std::chrono_literals;
using Connection = LoopbackServer::Connection;

/// As "deflate" means it in HTTP: Qt puts the length in front.
std::string packed(const std::string& text) {
    return qCompress(QByteArray::fromStdString(text), 9).mid(4).toStdString();
}

class HttpClientTest : public ::testing::Test {
  protected:
    HttpClientTest()
        : server([this](const HttpServer::Request& request, Connection& connection) {
              answer(request, connection);
          }) {}

    /// What the server says depends on what is asked.
    void answer(const HttpServer::Request& request, Connection& connection) {
        const std::string& target = request.target;
        if (target == "/file") {
            connection.write(httpAnswer("200 OK", "content"));
        } else if (target.starts_with("/status/")) {
            connection.write(httpAnswer(target.substr(8) + " Some Words", "an error page"));
        } else if (target.starts_with("/to/")) {
            connection.write(
                httpAnswer("301 Moved Permanently", "moved", "Location: " + target.substr(4) + "\r\n"));
        } else if (target == "/silent") {
            connection.hang();
        } else if (target == "/stops") {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nbegins");
            connection.hang();
        } else if (target == "/drips") {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
            while (connection.write(".")) connection.pause(50ms);
        } else if (target == "/half") {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nonly this");
        } else if (target == "/half-chunked") {
            connection.write("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nabcde\r\n");
        } else if (target == "/reset") {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nonly this");
            connection.reset();
        } else if (target == "/nothing") {
            return;
        } else if (target == "/garbage") {
            connection.write("this is no HTTP\r\n\r\n");
        } else if (target == "/packed") {
            connection.write(httpAnswer("200 OK", packed("content"), "Content-Encoding: deflate\r\n"));
        } else if (target == "/bomb") {
            connection.write(
                httpAnswer("200 OK", packed(std::string(20'000'000, '0')), "Content-Encoding: deflate\r\n"));
        } else if (target == "/large") {
            connection.write("HTTP/1.1 200 OK\r\n\r\n");
            while (connection.write(std::string(65536, 'x'))) continue;
        } else if (target == "/said-large") {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 99999999999\r\n\r\nx");
            connection.hang();
        } else {
            connection.write(httpAnswer("200 OK", request.head));
        }
    }

    HttpAnswer get(const std::string& url, HttpRedirects redirects = HttpRedirects::anyHost,
                   std::optional<HttpProxy> proxy = std::nullopt) {
        return client.get({url, folder.path() / "body", redirects, std::move(proxy)});
    }
    HttpAnswer getHere(const std::string& target) { return get(server.url(target)); }
    std::string body() const { return folder.read("body"); }

    TemporaryFolder folder;
    HttpServer server;
    QtHttpClient client{"Vantrace/1.2.3", {1000ms, 3000ms, 1'000'000}};
};

TEST_F(HttpClientTest, ABodyLandsInTheFileWhole) {
    const HttpAnswer answer = getHere("/file");
    EXPECT_EQ(answer.failure, HttpFailure::none) << answer.text;
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.text, "OK");
    EXPECT_TRUE(answer.mayHaveArrived);
    EXPECT_EQ(body(), "content");
    EXPECT_EQ(getHere("/packed").failure, HttpFailure::none);
    EXPECT_EQ(body(), "content");
    getHere("/echo");
    EXPECT_NE(body().find("User-Agent: Vantrace/1.2.3\r\n"), std::string::npos) << body();
}

TEST_F(HttpClientTest, AnyStatusIsAnAnswerWithItsWordsAndBody) {
    for (const int status : {403, 404, 407, 410, 418, 429, 500, 503, 599}) {
        const HttpAnswer answer = getHere("/status/" + std::to_string(status));
        EXPECT_EQ(answer.failure, status == 407 ? HttpFailure::proxy : HttpFailure::none)
            << status << answer.text;
        EXPECT_EQ(answer.status, status);
        if (status == 407) continue;
        EXPECT_EQ(answer.text, "Some Words");
        EXPECT_EQ(body(), "an error page");
    }
    EXPECT_EQ(getHere("/status/304").status, 304);
    EXPECT_EQ(getHere("/status/204").status, 204);
}

TEST_F(HttpClientTest, RedirectsAreFollowedAsTheRequestSays) {
    EXPECT_EQ(getHere("/to//file").status, 200);
    EXPECT_EQ(body(), "content") << "not the page that told of it";
    const std::string elsewhere = "http://localhost:" + std::to_string(server.port()) + "/file";
    EXPECT_EQ(getHere("/to/" + elsewhere).status, 200);
    EXPECT_EQ(body(), "content");
    const HttpAnswer stayed = get(server.url("/to/" + elsewhere), HttpRedirects::sameHost);
    EXPECT_EQ(stayed.failure, HttpFailure::none);
    EXPECT_EQ(stayed.status, 301);
    EXPECT_TRUE(stayed.leadsToOtherHost);
    EXPECT_NE(stayed.text.find("localhost"), std::string::npos) << stayed.text;
    EXPECT_EQ(get(server.url("/to/" + server.url("/file")), HttpRedirects::sameHost).status, 200);
}

TEST_F(HttpClientTest, RedirectsThatLeadNowhereAreFailures) {
    for (const std::string target : {"file:///etc/passwd", "ftp://127.0.0.1/x", "javascript:1"}) {
        EXPECT_EQ(getHere("/to/" + target).failure, HttpFailure::redirect) << target;
    }
    HttpServer circle([](const HttpServer::Request&, Connection& connection) {
        connection.write(httpAnswer("302 Found", "", "Location: /again\r\n"));
    });
    EXPECT_EQ(get(circle.url("/")).failure, HttpFailure::redirect);
    EXPECT_EQ(circle.requests().size(), 11U);
}

TEST_F(HttpClientTest, AServerThatKeepsWaitingIsLeft) {
    for (const std::string target : {"/silent", "/stops", "/drips"}) {
        const auto start = std::chrono::steady_clock::now();
        const HttpAnswer answer = getHere(target);
        EXPECT_EQ(answer.failure, HttpFailure::tooSlow) << target;
        EXPECT_TRUE(answer.mayHaveArrived) << target;
        EXPECT_LT(std::chrono::steady_clock::now() - start, 5s) << target;
    }
}

TEST_F(HttpClientTest, ABodyThatBreaksOffIsAFailure) {
    for (const std::string target : {"/half", "/half-chunked", "/reset", "/nothing", "/garbage"}) {
        const HttpAnswer answer = getHere(target);
        EXPECT_NE(answer.failure, HttpFailure::none) << target;
        EXPECT_NE(answer.text, "") << target;
    }
    EXPECT_EQ(getHere("/half").failure, HttpFailure::closed);
    EXPECT_EQ(getHere("/file").failure, HttpFailure::none) << "the next one is well";
}

TEST_F(HttpClientTest, ABodyBeyondTheLimitIsLeftEarly) {
    for (const std::string target : {"/large", "/said-large", "/bomb"}) {
        const HttpAnswer answer = getHere(target);
        EXPECT_EQ(answer.failure, HttpFailure::tooLarge) << target << ": " << answer.text;
        EXPECT_LE(body().size(), 1'000'000U) << target;
    }
}

TEST_F(HttpClientTest, WhatCantBeAskedNeverArrives) {
    for (const std::string url :
         {"", "x", "ftp://127.0.0.1/x", "http://", "http:///x", "file:///etc/passwd"}) {
        const HttpAnswer answer = get(url);
        EXPECT_EQ(answer.failure, HttpFailure::address) << url;
        EXPECT_FALSE(answer.mayHaveArrived);
    }
    EXPECT_EQ(get("http://nobody.invalid/").failure, HttpFailure::hostName);
    std::uint16_t closed = 0;
    {
        const LoopbackServer gone([](Connection&) {});
        closed = gone.port();
    }
    const HttpAnswer refused = get("http://127.0.0.1:" + std::to_string(closed) + "/x");
    EXPECT_EQ(refused.failure, HttpFailure::refused);
    EXPECT_FALSE(refused.mayHaveArrived);
    EXPECT_NE(refused.text, "");
    EXPECT_EQ(client.get({server.url("/file"), folder.path() / "no" / "body", {}, {}}).failure,
              HttpFailure::file);
}

TEST_F(HttpClientTest, AProxyIsAskedInTheServersPlace) {
    const HttpProxy proxy{"127.0.0.1", server.port(), "", ""};
    const HttpAnswer answer = get("http://nobody.invalid/page", HttpRedirects::anyHost, proxy);
    EXPECT_EQ(answer.failure, HttpFailure::none) << answer.text;
    EXPECT_EQ(server.requests().back().target, "http://nobody.invalid/page");
    EXPECT_EQ(server.requests().back().head.find("Proxy-Authorization"), std::string::npos);
    const HttpAnswer gone =
        get(server.url("/file"), HttpRedirects::anyHost, HttpProxy{"127.0.0.1", 1, "", ""});
    EXPECT_EQ(gone.failure, HttpFailure::proxy) << gone.text;
    EXPECT_EQ(gone.text, "The proxy 127.0.0.1 takes no connection");
    EXPECT_FALSE(gone.mayHaveArrived);
    EXPECT_EQ(get(server.url("/file"), HttpRedirects::anyHost, HttpProxy{"nobody.invalid", 1, "", ""}).text,
              "The proxy nobody.invalid wasn't found");
    EXPECT_EQ(getHere("/file").failure, HttpFailure::none) << "and the next one goes without";
}

}  // namespace
}  // namespace vantrace
