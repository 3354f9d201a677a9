#include "platform/ecrcom/libreria.h"

#include <QDir>
#include <QLibrary>
#include <algorithm>

#include "platform/ecrcom/ecrcom.h"
#include "platform/errore.h"

namespace {

#if defined(Q_OS_WIN)
constexpr QLatin1String kNome("ecrcom.dll");
#elif defined(Q_OS_MACOS)
constexpr QLatin1String kNome("libecrcom.dylib");
#else
constexpr QLatin1String kNome("libecrcom.so");
#endif

/// Room behind every buffer: a library that writes a NUL, or a little more, past the length it was told
/// spoils nothing of ours.
constexpr qsizetype kMargine = 256;
constexpr qsizetype kLunghezzaDataOra = 18;

/// A copy of a byte array that a foreign library may write to.
class Area {
 public:
  explicit Area(const QByteArray& byte) : lunghezza_(byte.size()), byte_(byte + QByteArray(kMargine, '\0')) {}
  char* dati() { return byte_.data(); }
  std::int32_t lunghezza() const { return static_cast<std::int32_t>(lunghezza_); }
  /// What stands there up to a NUL, at most the first length.
  QByteArray testo() const {
    return intero().left(
        static_cast<qsizetype>(qstrnlen(byte_.constData(), static_cast<size_t>(lunghezza_))));
  }
  QByteArray intero() const { return byte_.left(lunghezza_); }

 private:
  qsizetype lunghezza_;
  QByteArray byte_;
};

}  // namespace

struct LibreriaEcr::Interno {
  QString cartella;
  QLibrary libreria;

  void carica() {
    if (libreria.isLoaded()) return;
    libreria.setFileName(QDir(cartella).absoluteFilePath(kNome));
    if (!libreria.load()) throw Errore{errore::kFileAssente, QStringLiteral("File non trovato: ") + kNome};
  }

  template <typename Funzione>
  Funzione ingresso(Funzione, const char* nome) {
    carica();
    if (const QFunctionPointer trovato = libreria.resolve(nome)) return reinterpret_cast<Funzione>(trovato);
    throw Errore{errore::kIngressoAssente, QStringLiteral("Impossibile trovare il punto di ingresso ") +
                                               QLatin1String(nome) + QStringLiteral(" in ") + kNome};
  }
};

// The entry of the loaded library that bears the name and has the type of the one in ecrcom.h.
#define INGRESSO(nome) interno_->ingresso(static_cast<decltype(&::nome)>(nullptr), #nome)

LibreriaEcr::LibreriaEcr(QString cartella) : interno_(std::make_unique<Interno>()) {
  interno_->cartella = std::move(cartella);
}

LibreriaEcr::~LibreriaEcr() = default;

std::int16_t LibreriaEcr::ecr_command(QByteArray& ip, QByteArray& file, int modo, QByteArray& buffer) {
  const auto funzione = INGRESSO(ecr_command);
  Area areaIp(ip);
  Area areaFile(file);
  Area areaBuffer(buffer);
  const std::int16_t codice =
      funzione(areaIp.dati(), areaFile.dati(), modo, areaBuffer.dati(), areaBuffer.lunghezza());
  ip = areaIp.testo();
  file = areaFile.testo();
  buffer = areaBuffer.intero();
  return codice;
}

QByteArray LibreriaEcr::ecr_get_err(std::int16_t codice, int lunghezza) {
  const auto funzione = INGRESSO(ecr_get_err);
  Area area(QByteArray(std::max(lunghezza, 0), ' '));
  funzione(codice, area.dati());
  return area.testo();
}

std::int32_t LibreriaEcr::ecr_conn_xonxoff_ntw(const QByteArray& ip) {
  const auto funzione = INGRESSO(ecr_conn_xonxoff_ntw);
  Area area(ip);
  return funzione(area.dati());
}

std::int16_t LibreriaEcr::ecr_disc_xonxoff_ntw(std::int32_t maniglia) {
  return INGRESSO(ecr_disc_xonxoff_ntw)(maniglia);
}

std::int16_t LibreriaEcr::ecr_send_xonxoff_ntw(std::int32_t maniglia, QByteArray& testo) {
  const auto funzione = INGRESSO(ecr_send_xonxoff_ntw);
  Area area(testo);
  const std::int16_t codice = funzione(maniglia, area.dati());
  testo = area.intero();
  return codice;
}

std::int32_t LibreriaEcr::ecr_recv_xonxoff_ntw(std::int32_t maniglia, QByteArray& buffer, int attesa) {
  const auto funzione = INGRESSO(ecr_recv_xonxoff_ntw);
  Area area(buffer);
  const std::int32_t ricevuti = funzione(maniglia, area.dati(), area.lunghezza(), attesa);
  buffer = area.intero();
  return std::min(ricevuti, area.lunghezza());
}

std::uint32_t LibreriaEcr::ecr_date_decode(int giorno, int mese, int anno) {
  return INGRESSO(ecr_date_decode)(giorno, mese, anno);
}

std::uint32_t LibreriaEcr::ecr_dates_decode(int giorno, int mese) {
  return INGRESSO(ecr_dates_decode)(giorno, mese);
}

std::uint32_t LibreriaEcr::ecr_time_decode(int ore, int minuti, int secondi) {
  return INGRESSO(ecr_time_decode)(ore, minuti, secondi);
}

QByteArray LibreriaEcr::ecr_oro_encode(std::uint32_t valore) {
  const auto funzione = INGRESSO(ecr_oro_encode);
  Area area(QByteArray(kLunghezzaDataOra, '\0'));
  funzione(valore, area.dati());
  return area.testo();
}

#undef INGRESSO
