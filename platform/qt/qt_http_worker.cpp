#include "platform/qt/qt_http_worker.h"

#include <fcntl.h>

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QSslError>
#include <QStringList>
#include <cerrno>
#include <utility>

#include "platform/qt/qt_http_failure.h"

namespace vantrace {

namespace {

constexpr int mostRedirects = 10;
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
    m_redirects = 0;
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
    m_reply = m_network->get(request);
    m_reply->setReadBufferSize(readAheadBytes);
    const auto isAlive = [this] { m_quiet.start(m_limits.quiet); };
    connect(m_reply, &QNetworkReply::encrypted, this, isAlive);
    connect(m_reply, &QNetworkReply::requestSent, this, [this, isAlive] {
        m_answer.mayHaveArrived = true;
        isAlive();
    });
    connect(m_reply, &QNetworkReply::sslErrors, this, [this](const QList<QSslError>& errors) {
        QStringList reasons;
        for (const QSslError& error : errors) reasons << error.errorString();
        reasons.removeDuplicates();
        m_distrust = reasons.join(QStringLiteral("; "));
    });
    connect(m_reply, &QNetworkReply::metaDataChanged, this, [this, isAlive] {
        isAlive();
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
    const bool isAnswer = m_answer.status >= 400 && error >= QNetworkReply::ContentAccessDenied;
    if (error != QNetworkReply::NoError && !isAnswer) {
        const HttpFailure failure =
            httpFailureOf(error, m_request.proxy.has_value(), m_answer.mayHaveArrived);
        if (failure == HttpFailure::proxy) m_answer.mayHaveArrived = false;
        fail(failure, textOf(error));
        return;
    }
    const QByteArray location = m_reply->rawHeader("Location");
    if (m_answer.status >= 301 && m_answer.status <= 308 && m_answer.status != 304 && !location.isEmpty()) {
        follow(location);
    } else {
        finish();
    }
}

void HttpWorker::follow(const QByteArray& location) {
    const QUrl from = m_reply->url();
    QUrl target = from.resolved(QUrl::fromEncoded(location));
    if (!isFetchable(target)) {
        fail(HttpFailure::redirect, "The server sends on to what can't be fetched");
    } else if (from.scheme() == QLatin1String("https") && target.scheme() == QLatin1String("http")) {
        fail(HttpFailure::redirect, "The server sends on to an address without encryption");
    } else if (!isSameHost(from, target) && m_request.redirects == HttpRedirects::sameHost) {
        m_answer.leadsToOtherHost = true;
        m_answer.text = printable(QString::fromStdString(m_answer.text) +
                                  QStringLiteral(", to another host: ") + target.host());
        finish();
    } else if (++m_redirects > mostRedirects) {
        fail(HttpFailure::redirect, "The server sends on and on");
    } else if (ftruncate(m_file->get(), 0) != 0 || lseek(m_file->get(), 0, SEEK_SET) != 0) {
        fail(HttpFailure::file, m_request.file.string() + ": " + reasonOf(errno));
    } else {
        m_bodyBytes = 0;
        m_reply->disconnect(this);
        std::exchange(m_reply, nullptr)->deleteLater();
        // A name and a password were meant for the first host.
        if (!isSameHost(from, target)) target.setUserInfo(QString());
        ask(target);
    }
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
    // The manager may be further up on the stack.
    if (m_answer.failure != HttpFailure::none && m_network) m_network.release()->deleteLater();
    std::exchange(m_done, nullptr)(std::move(m_answer));
}

}  // namespace vantrace
