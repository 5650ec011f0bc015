// The one that fetches: what of HTTP lives on a thread of its own.
#pragma once

#include <QObject>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/file_descriptor.h"
#include "platform/http_client.h"
#include "platform/qt/qt_http_client.h"

class QNetworkAccessManager;
class QNetworkReply;

namespace vantrace {

/// Lives, and is destroyed, on a thread with an event loop. One request at a time.
class HttpWorker final : public QObject {
  public:
    using Done = std::function<void(HttpAnswer)>;

    HttpWorker(const std::string& userAgent, const HttpLimits& limits);
    ~HttpWorker() override;

    /// Calls `done` once, on this thread. One that is under way is broken off.
    void start(const HttpRequest& request, Done done);

  private:
    void prepareNetwork();
    void ask(const QUrl& url);
    void takeHead();
    void takeBody();
    void takeEnd();
    /// Where the answer sends on to; empty where it doesn't.
    std::string location() const;
    bool writeBody(const QByteArray& body);
    std::string textOf(int networkError) const;
    void fail(HttpFailure failure, std::string text);
    void finish();

    const QByteArray m_userAgent;
    const HttpLimits m_limits;
    QTimer m_quiet;
    QTimer m_whole;
    /// Kept for the next request, so that the connection serves it too; anew for another proxy and after any
    /// failure, so that nothing of it lives on.
    std::unique_ptr<QNetworkAccessManager> m_network;
    std::optional<HttpProxy> m_networkProxy;
    /// It has served.
    bool m_mayBeConnected = false;

    HttpRequest m_request;
    Done m_done;
    HttpAnswer m_answer;
    QNetworkReply* m_reply = nullptr;
    std::optional<FileDescriptor> m_file;
    std::int64_t m_bodyBytes = 0;
    std::chrono::steady_clock::time_point m_start{};
    /// What TLS complained of.
    QString m_distrust;
};

}  // namespace vantrace
