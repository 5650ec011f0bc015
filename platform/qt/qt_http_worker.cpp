#include "platform/qt/qt_http_worker.h"

#include <fcntl.h>

#include <QIODevice>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QSslError>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "platform/qt/qt_http_failure.h"

namespace vantrace {

namespace {

/// What waits in memory to be written.
constexpr qint64 readAheadBytes = 1 << 20;
constexpr qsizetype longestText = 300;

/// Words of a server, fit for a line of text.
std::string printable(QString text) {
    text = text.simplified();
    for (QChar& sign : text) {
        if (!sign.isPrint()) sign = QLatin1Char('?');
    }
    if (text.size() > longestText) text = text.left(longestText - 3) + QStringLiteral("...");
    return text.toStdString();
}

bool isSameHost(const QUrl& left, const QUrl& right) {
    return left.host().compare(right.host(), Qt::CaseInsensitive) == 0;
}

bool isFetchable(const QUrl& url) {
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"));
}

/// An empty body. Qt takes a body back to its start before it sends a request once more, and sends none where
/// that fails: the one way to have a request sent once. No QBuffer, which Qt would read past this class.
class UnrepeatableBody final : public QIODevice {
  public:
    /// A proxy may want to know who asks, and that takes further rounds.
    explicit UnrepeatableBody(bool mayIntroduceItself) : m_mayIntroduceItself(mayIntroduceItself) {
        open(QIODevice::ReadOnly);
    }
    bool reset() override { return m_mayIntroduceItself; }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    const bool m_mayIntroduceItself;
};

/// Nobody who could answer was reached. A proxy that broke off may have passed the request on.
bool isBeforeTheHost(QNetworkReply::NetworkError error) {
    constexpr std::array errors{
        QNetworkReply::ConnectionRefusedError,  QNetworkReply::HostNotFoundError,
        QNetworkReply::SslHandshakeFailedError, QNetworkReply::ProxyConnectionRefusedError,
        QNetworkReply::ProxyNotFoundError,      QNetworkReply::ProxyAuthenticationRequiredError,
    };
    return std::ranges::find(errors, error) != errors.end();
}

QNetworkProxy qtProxy(const std::optional<HttpProxy>& proxy) {
    if (!proxy) return QNetworkProxy(QNetworkProxy::NoProxy);
    QNetworkProxy result(QNetworkProxy::HttpProxy, QString::fromStdString(proxy->host), proxy->port);
    if (!proxy->user.empty()) {
        result.setUser(QString::fromStdString(proxy->user));
        result.setPassword(QString::fromStdString(proxy->password));
    }
    return result;
}

bool isSameProxy(const std::optional<HttpProxy>& left, const std::optional<HttpProxy>& right) {
    if (!left || !right) return left.has_value() == right.has_value();
    return left->host == right->host && left->port == right->port && left->user == right->user &&
           left->password == right->password;
}

}  // namespace

HttpWorker::HttpWorker(const std::string& userAgent, const HttpLimits& limits)
    : m_userAgent(QByteArray::fromStdString(userAgent)), m_limits(limits), m_quiet(this), m_whole(this) {
    for (QTimer* const timer : {&m_quiet, &m_whole}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this,
                [this] { fail(HttpFailure::tooSlow, "The server took too long"); });
    }
}

HttpWorker::~HttpWorker() = default;

void HttpWorker::start(const HttpRequest& request, Done done) {
    if (m_done) fail(HttpFailure::busy, "Another file is being fetched");
    m_request = request;
    m_done = std::move(done);
    m_answer = {};
    m_bodyBytes = 0;
    m_start = std::chrono::steady_clock::now();
    m_whole.start(m_limits.whole);
    m_file.emplace(
        open(request.file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0644));
    if (!m_file->isOpen()) {
        fail(HttpFailure::file, request.file.string() + ": " + reasonOf(errno));
        return;
    }
    const QUrl url(QString::fromStdString(request.url));
    if (!isFetchable(url)) {
        fail(HttpFailure::address, "\"" + request.url + "\" can't be fetched");
        return;
    }
    prepareNetwork();
    ask(url);
}

void HttpWorker::prepareNetwork() {
    if (m_network && isSameProxy(m_networkProxy, m_request.proxy)) return;
    m_networkProxy = m_request.proxy;
    m_network = std::make_unique<QNetworkAccessManager>();
    m_mayBeConnected = false;
    m_network->setProxy(qtProxy(m_networkProxy));
}

void HttpWorker::ask(const QUrl& url) {
    m_quiet.start(m_limits.quiet);
    m_distrust.clear();
    QNetworkRequest request(url);
    request.setRawHeader("User-Agent", m_userAgent);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    // Our own limit is enough against bodies that unpack without end.
    request.setDecompressedSafetyCheckThreshold(-1);
    // Qt would ask again by itself, up to three times, when the server closes before it has answered.
    const bool mayIntroduceItself = m_request.proxy && !m_request.proxy->user.empty();
    auto body = std::make_unique<UnrepeatableBody>(mayIntroduceItself);
    m_reply = m_network->sendCustomRequest(request, "GET", body.get());
    body.release()->setParent(m_reply);
    m_reply->setReadBufferSize(readAheadBytes);
    const auto isAlive = [this] { m_quiet.start(m_limits.quiet); };
    // Qt tells when a request without a body is sent, and this one has one. Until TLS is agreed on it can't
    // be; without TLS, and on a connection that served before, it isn't known.
    m_answer.mayHaveArrived = url.scheme() == QLatin1String("http") || m_mayBeConnected;
    const auto isReached = [this, isAlive] {
        m_answer.mayHaveArrived = true;
        isAlive();
    };
    connect(m_reply, &QNetworkReply::encrypted, this, isReached);
    connect(m_reply, &QNetworkReply::sslErrors, this, [this](const QList<QSslError>& errors) {
        QStringList reasons;
        for (const QSslError& error : errors) reasons << error.errorString();
        reasons.removeDuplicates();
        m_distrust = reasons.join(QStringLiteral("; "));
    });
    connect(m_reply, &QNetworkReply::metaDataChanged, this, [this, isReached] {
        isReached();
        takeHead();
    });
    connect(m_reply, &QNetworkReply::readyRead, this, [this, isAlive] {
        isAlive();
        takeBody();
    });
    connect(m_reply, &QNetworkReply::finished, this, &HttpWorker::takeEnd);
}

void HttpWorker::takeHead() {
    m_answer.status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    m_answer.text = printable(m_reply->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString());
    if (m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong() > m_limits.bodyBytes) {
        fail(HttpFailure::tooLarge, "The file is too large");
    }
}

void HttpWorker::takeBody() {
    while (m_reply && m_reply->bytesAvailable() > 0) {
        const QByteArray body = m_reply->read(readAheadBytes);
        if (body.isEmpty()) return;
        m_bodyBytes += body.size();
        if (m_bodyBytes > m_limits.bodyBytes) {
            fail(HttpFailure::tooLarge, "The file is too large");
        } else if (!writeBody(body)) {
            fail(HttpFailure::file, m_request.file.string() + ": " + reasonOf(errno));
        }
    }
}

bool HttpWorker::writeBody(const QByteArray& body) {
    const char* rest = body.constData();
    std::size_t length = static_cast<std::size_t>(body.size());
    while (length > 0) {
        const ssize_t count = write(m_file->get(), rest, length);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        rest += count;
        length -= static_cast<std::size_t>(count);
    }
    return true;
}

void HttpWorker::takeEnd() {
    takeBody();
    if (!m_reply) return;
    const QNetworkReply::NetworkError error = m_reply->error();
    // What Qt calls an error may be an answer, too.
    const bool isOfHost =
        error >= QNetworkReply::ContentAccessDenied ||
        (error == QNetworkReply::ProxyAuthenticationRequiredError && !m_request.proxy.has_value());
    const bool isAnswer = m_answer.status >= 400 && isOfHost;
    if (error != QNetworkReply::NoError && !isAnswer) {
        if (isBeforeTheHost(error)) m_answer.mayHaveArrived = false;
        const HttpFailure failure =
            httpFailureOf(error, m_request.proxy.has_value(), m_answer.mayHaveArrived);
        fail(failure, textOf(error));
        return;
    }
    m_answer.location = location();
    m_mayBeConnected = true;
    finish();
}

std::string HttpWorker::location() const {
    // Use Proxy (305) is not to be followed any more, says RFC 9110.
    constexpr std::array redirects{301, 302, 303, 307, 308};
    const QByteArray told = m_reply->rawHeader("Location");
    if (told.isEmpty() || std::ranges::find(redirects, m_answer.status) == redirects.end()) return {};
    QUrl target = m_reply->url().resolved(QUrl::fromEncoded(told));
    // A name and a password were meant for the first host.
    if (!isSameHost(m_reply->url(), target)) target.setUserInfo(QString());
    return target.toEncoded().toStdString();
}

std::string HttpWorker::textOf(int networkError) const {
    const QString host = m_request.proxy
                             ? QStringLiteral("The proxy ") + QString::fromStdString(m_request.proxy->host)
                             : QStringLiteral("The host ") + m_reply->url().host();
    switch (networkError) {
        case QNetworkReply::ConnectionRefusedError:
        case QNetworkReply::ProxyConnectionRefusedError:
            return printable(host + QStringLiteral(" takes no connection"));
        case QNetworkReply::RemoteHostClosedError:
        case QNetworkReply::ContentReSendError:
        case QNetworkReply::ProxyConnectionClosedError:
            return printable(host + QStringLiteral(" closed the connection too early"));
        case QNetworkReply::HostNotFoundError:
        case QNetworkReply::ProxyNotFoundError:
            return printable(host + QStringLiteral(" wasn't found"));
        case QNetworkReply::ProxyAuthenticationRequiredError:
            return printable(host + QStringLiteral(" wants another name or password"));
        case QNetworkReply::SslHandshakeFailedError:
            return printable(m_reply->url().host() + QStringLiteral(" isn't trusted: ") +
                             (m_distrust.isEmpty() ? m_reply->errorString() : m_distrust));
        default:
            return printable(m_reply->errorString());
    }
}

void HttpWorker::fail(HttpFailure failure, std::string text) {
    if (!m_done) return;
    m_answer.failure = failure;
    m_answer.text = printable(QString::fromStdString(text));
    finish();
}

void HttpWorker::finish() {
    m_quiet.stop();
    m_whole.stop();
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
        std::exchange(m_reply, nullptr)->deleteLater();
    }
    // Some file systems tell only now that something was lost.
    if (m_file && m_file->isOpen() && !m_file->close() && m_answer.failure == HttpFailure::none) {
        m_answer.failure = HttpFailure::file;
        m_answer.text = m_request.file.string() + ": " + reasonOf(errno);
    }
    m_file.reset();
    m_answer.took =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - m_start);
    // The manager may be further up on the stack.
    if (m_answer.failure != HttpFailure::none && m_network) m_network.release()->deleteLater();
    std::exchange(m_done, nullptr)(std::move(m_answer));
}

}  // namespace vantrace
