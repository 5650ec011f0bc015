// What Qt's errors mean to whoever asked.
#pragma once

#include "platform/http_client.h"

namespace vantrace {

/// Of a QNetworkReply::NetworkError. `mayHaveArrived` as in HttpAnswer.
HttpFailure httpFailureOf(int networkError, bool hasProxy, bool mayHaveArrived);

}  // namespace vantrace
