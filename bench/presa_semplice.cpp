#include "bench/presa_semplice.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace {

constexpr std::uint16_t kPorta = 17999;
constexpr std::size_t kRisposta = 64;

sockaddr_in punto(const std::string& indirizzo) {
  sockaddr_in qui{};
  qui.sin_family = AF_INET;
  qui.sin_port = htons(kPorta);
  inet_pton(AF_INET, indirizzo.c_str(), &qui.sin_addr);
  return qui;
}

bool leggi(int presa, void* dove, std::size_t quanti) {
  auto* byte = static_cast<char*>(dove);
  while (quanti > 0) {
    const ssize_t letti = recv(presa, byte, quanti, 0);
    if (letti <= 0) return false;
    byte += letti;
    quanti -= static_cast<std::size_t>(letti);
  }
  return true;
}

bool manda(int presa, const void* cosa, std::size_t quanti) {
  const auto* byte = static_cast<const char*>(cosa);
  while (quanti > 0) {
    const ssize_t mandati = send(presa, byte, quanti, MSG_NOSIGNAL);
    if (mandati <= 0) return false;
    byte += mandati;
    quanti -= static_cast<std::size_t>(mandati);
  }
  return true;
}

}  // namespace

PresaSemplice::PresaSemplice(std::string indirizzo)
    : indirizzo_(std::move(indirizzo)), ascolto_(socket(AF_INET, SOCK_STREAM, 0)) {
  const int uno = 1;
  setsockopt(ascolto_, SOL_SOCKET, SO_REUSEADDR, &uno, sizeof uno);
  const sockaddr_in qui = punto(indirizzo_);
  if (bind(ascolto_, reinterpret_cast<const sockaddr*>(&qui), sizeof qui) != 0 || listen(ascolto_, 8) != 0)
    throw std::runtime_error("cannot listen");
  filo_ = std::thread([this] { servi(); });
}

PresaSemplice::~PresaSemplice() {
  shutdown(ascolto_, SHUT_RDWR);
  filo_.join();
  close(ascolto_);
}

void PresaSemplice::servi() const {
  std::vector<char> deposito;
  const std::array<char, kRisposta> risposta{};
  for (int presa = accept(ascolto_, nullptr, nullptr); presa >= 0;
       presa = accept(ascolto_, nullptr, nullptr)) {
    std::uint64_t quanti = 0;
    if (leggi(presa, &quanti, sizeof quanti)) {
      deposito.resize(quanti);
      if (leggi(presa, deposito.data(), quanti)) manda(presa, risposta.data(), risposta.size());
    }
    close(presa);
  }
}

void PresaSemplice::scambia(const std::string& byte) const {
  const int presa = socket(AF_INET, SOCK_STREAM, 0);
  const int uno = 1;
  setsockopt(presa, IPPROTO_TCP, TCP_NODELAY, &uno, sizeof uno);
  const sockaddr_in la = punto(indirizzo_);
  const std::uint64_t quanti = byte.size();
  std::string tutto(sizeof quanti, '\0');
  std::memcpy(tutto.data(), &quanti, sizeof quanti);
  tutto += byte;
  std::array<char, kRisposta> risposta{};
  const bool fatto = connect(presa, reinterpret_cast<const sockaddr*>(&la), sizeof la) == 0 &&
                     manda(presa, tutto.data(), tutto.size()) &&
                     leggi(presa, risposta.data(), risposta.size());
  close(presa);
  if (!fatto) throw std::runtime_error("no answer");
}
