#include "ecrcom/attese.h"

#include <algorithm>
#include <atomic>

#include "ecrcom/ecrcom_servizio.h"

namespace {

constexpr std::int32_t kAttesaMinima = 1;
constexpr std::int32_t kAttesaMassima = 600000;

std::atomic<std::int32_t> connessione{ECR_CONNECT_MS};
std::atomic<std::int32_t> risposta{ECR_REPLY_MS};

}  // namespace

std::chrono::milliseconds ecrcom::attesaConnessione() {
  return std::chrono::milliseconds(connessione);
}
std::chrono::milliseconds ecrcom::attesaRisposta() {
  return std::chrono::milliseconds(risposta);
}

void ecr_set_timeout(int32_t connect_ms, int32_t reply_ms) {
  connessione = std::clamp(connect_ms, kAttesaMinima, kAttesaMassima);
  risposta = std::clamp(reply_ms, kAttesaMinima, kAttesaMassima);
}
