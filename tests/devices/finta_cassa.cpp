#include "devices/finta_cassa.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <utility>

#include "sostegno/cassa.h"

namespace {

constexpr int kCoda = 8;
constexpr std::chrono::seconds kLimite{30};

}  // namespace

ecrcom::Presa inAscolto(const QString& indirizzo, int coda) {
  ecrcom::Presa presa(socket(AF_INET, SOCK_STREAM, 0));
  const int si = 1;
  setsockopt(presa.descrittore(), SOL_SOCKET, SO_REUSEADDR, &si, sizeof si);
  sockaddr_in dove{};
  dove.sin_family = AF_INET;
  dove.sin_port = htons(ecrcom::kPorta);
  dove.sin_addr = *ecrcom::indirizzo(indirizzo.toStdString());
  EXPECT_EQ(bind(presa.descrittore(), reinterpret_cast<sockaddr*>(&dove), sizeof dove), 0);
  EXPECT_EQ(listen(presa.descrittore(), coda), 0);
  return presa;
}

void aspettaChiusura(const ecrcom::Presa& presa) {
  std::array<std::uint8_t, 4096> resto;
  std::size_t quanti = 0;
  while (ecrcom::riceviQualcosa(presa, resto, ecrcom::fra(kLimite), quanti) == ecrcom::Esito::Fatto) continue;
}

FintaCassa::FintaCassa(std::function<void(const ecrcom::Presa&)> tratta)
    : indirizzo_(indirizzoProprio()),
      tratta_(std::move(tratta)),
      ascolto_(inAscolto(indirizzo_, kCoda)),
      filo_([this] { servi(); }) {}

FintaCassa::~FintaCassa() {
  shutdown(ascolto_.descrittore(), SHUT_RDWR);
  filo_.join();
}

void FintaCassa::servi() {
  while (ecrcom::attendi(ascolto_, POLLIN, std::nullopt) == ecrcom::Esito::Fatto) {
    const ecrcom::Presa presa(accept(ascolto_.descrittore(), nullptr, nullptr));
    if (!presa.aperta()) return;
    tratta_(presa);
  }
}
