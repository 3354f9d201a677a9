#include "sostegno/cassa.h"

#include <arpa/inet.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <atomic>

#include "ecrcom/ecrcom_servizio.h"
#include "ecrcom/presa.h"

namespace {

constexpr std::uint32_t kReteLocale = 127U << 24U;
constexpr std::uint32_t kNumeri = 1U << 24U;
/// Apart enough that processes started one behind the other do not meet.
constexpr std::uint32_t kPerProcesso = 509;
constexpr qsizetype kPosti = 5000;

/// 127.0.0.x is for people; 0 and 255 at the end look like a network and its broadcast.
bool usabile(std::uint32_t numero) {
  const std::uint32_t ultimo = numero & 0xFFU;
  return numero > 0xFFU && ultimo != 0 && ultimo != 0xFFU;
}

bool libero(std::uint32_t indirizzo) {
  ecrcom::Presa presa(socket(AF_INET, SOCK_STREAM, 0));
  sockaddr_in dove{};
  dove.sin_family = AF_INET;
  dove.sin_port = htons(ecrcom::kPorta);
  dove.sin_addr.s_addr = htonl(indirizzo);
  return bind(presa.descrittore(), reinterpret_cast<sockaddr*>(&dove), sizeof dove) == 0;
}

void scriviIntero(QByteArray& byte, qsizetype posizione, std::int32_t valore) {
  qToLittleEndian(valore, byte.data() + posizione);
}

}  // namespace

QString indirizzoProprio() {
  static std::atomic<std::uint32_t> contatore{static_cast<std::uint32_t>(getpid()) * kPerProcesso};
  for (;;) {
    const std::uint32_t numero = contatore++ % kNumeri;
    if (!usabile(numero) || !libero(kReteLocale | numero)) continue;
    return QStringLiteral("127.%1.%2.%3").arg(numero >> 16U).arg(numero >> 8U & 0xFFU).arg(numero & 0xFFU);
  }
}

QByteArray archivioVenduto(const std::vector<Venduto>& venduto) {
  QByteArray byte(3 * kPosti * 4, '\0');
  for (const Venduto& uno : venduto) {
    scriviIntero(byte, uno.posto * 4, uno.importo);
    scriviIntero(byte, (kPosti + uno.posto) * 4, uno.pezzi);
    scriviIntero(byte, (2 * kPosti + uno.posto) * 4, uno.sconto);
  }
  return byte;
}

Cassa::Cassa(ecrsim::Opzioni opzioni) {
  EXPECT_TRUE(memoria_.isValid());
  if (opzioni.indirizzo == ecrsim::Opzioni().indirizzo) opzioni.indirizzo = indirizzoProprio().toStdString();
  opzioni.cartella = memoria_.path().toStdString();
  indirizzo_ = QString::fromStdString(opzioni.indirizzo);
  simulatore_ = std::make_unique<ecrsim::Simulatore>(std::move(opzioni));
}

bool Cassa::esiste(const QString& nome) const {
  return QFileInfo::exists(file(nome));
}

QByteArray Cassa::byte(const QString& nome) const {
  QFile entrata(file(nome));
  EXPECT_TRUE(entrata.open(QIODevice::ReadOnly)) << nome.toStdString();
  return entrata.readAll();
}

void Cassa::metti(const QString& nome, const QByteArray& byte) const {
  QFile uscita(file(nome));
  EXPECT_TRUE(uscita.open(QIODevice::WriteOnly)) << nome.toStdString();
  EXPECT_EQ(uscita.write(byte), byte.size());
}

void Cassa::venduto(const std::vector<Venduto>& venduto) const {
  metti(QStringLiteral("venduto.bin"), archivioVenduto(venduto));
}

AttesaBreve::AttesaBreve(int connessione, int risposta)
    : libreria_(dlopen(GESTIONALE_APP "/libecrcom.so", RTLD_NOW)) {
  if (libreria_ == nullptr) throw std::runtime_error(dlerror());
  reinterpret_cast<decltype(&ecr_set_timeout)>(dlsym(libreria_, "ecr_set_timeout"))(connessione, risposta);
}

AttesaBreve::~AttesaBreve() {
  const auto imposta = reinterpret_cast<decltype(&ecr_set_timeout)>(dlsym(libreria_, "ecr_set_timeout"));
  imposta(ECR_CONNECT_MS, ECR_REPLY_MS);
  dlclose(libreria_);
}
