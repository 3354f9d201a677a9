#include "ecrcom/timeouts.h"

#include <algorithm>
#include <atomic>

#include "ecrcom/ecrcom_service.h"

namespace {

constexpr std::int32_t kMinWait = 1;
constexpr std::int32_t kMaxWait = 600000;

std::atomic<std::int32_t> connection{ECR_CONNECT_MS};
std::atomic<std::int32_t> reply{ECR_REPLY_MS};

}  // namespace

std::chrono::milliseconds ecrcom::connectTimeout() {
  return std::chrono::milliseconds(connection);
}
std::chrono::milliseconds ecrcom::replyTimeout() {
  return std::chrono::milliseconds(reply);
}

void ecr_set_timeout(int32_t connect_ms, int32_t reply_ms) {
  connection = std::clamp(connect_ms, kMinWait, kMaxWait);
  reply = std::clamp(reply_ms, kMinWait, kMaxWait);
}
