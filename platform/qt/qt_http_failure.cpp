#include "platform/qt/qt_http_failure.h"

#include <QNetworkReply>

namespace vantrace {

HttpFailure httpFailureOf(int networkError, bool hasProxy, bool mayHaveArrived) {
    // Where there is a proxy, nobody else is connected to and looked for.
    const auto orProxy = [hasProxy](HttpFailure failure) { return hasProxy ? HttpFailure::proxy : failure; };
    switch (networkError) {
        case QNetworkReply::ConnectionRefusedError:
            return orProxy(HttpFailure::refused);
        case QNetworkReply::RemoteHostClosedError:
        // It closed before it answered, and isn't asked once more.
        case QNetworkReply::ContentReSendError:
            return HttpFailure::closed;
        case QNetworkReply::HostNotFoundError:
            return orProxy(HttpFailure::hostName);
        case QNetworkReply::TimeoutError:
            return HttpFailure::tooSlow;
        case QNetworkReply::SslHandshakeFailedError:
            return HttpFailure::trust;
        case QNetworkReply::ProxyConnectionRefusedError:
        case QNetworkReply::ProxyConnectionClosedError:
        case QNetworkReply::ProxyNotFoundError:
        case QNetworkReply::ProxyTimeoutError:
        case QNetworkReply::ProxyAuthenticationRequiredError:
        case QNetworkReply::UnknownProxyError:
            return HttpFailure::proxy;
        case QNetworkReply::ProtocolFailure:
        case QNetworkReply::ProtocolUnknownError:
        case QNetworkReply::ProtocolInvalidOperationError:
        case QNetworkReply::UnknownContentError:
            return HttpFailure::protocol;
        case QNetworkReply::UnknownNetworkError:
            // So Qt tells of a proxy that doesn't let it through to the host.
            return mayHaveArrived ? HttpFailure::other : orProxy(HttpFailure::other);
        default:
            return HttpFailure::other;
    }
}

}  // namespace vantrace
