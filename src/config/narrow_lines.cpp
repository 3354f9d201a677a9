#include "config/narrow_lines.h"

#include "ecrlink/models.h"
#include "platform/error.h"

namespace config {

namespace {

/// Where one byte of a line stands in its wide and in its narrow form.
struct Coppia {
  std::size_t piena;
  std::size_t corta;
};

constexpr std::array kCoppieIntestazione{
    Coppia{intestazione::kTesto.inizio, intestazione_corta::kPrimaLettera.inizio},
    Coppia{intestazione::kDoppiaAltezza.inizio, intestazione_corta::kDoppiaAltezza.inizio}};
constexpr std::array kCoppieCortesia{
    Coppia{cortesia::kTesto.inizio, cortesia_corta::kPrimaLettera.inizio},
    Coppia{cortesia::kDoppiaAltezza.inizio, cortesia_corta::kDoppiaAltezza.inizio},
    Coppia{cortesia::kAbilitazione.inizio, cortesia_corta::kAbilitazione.inizio}};

struct Forma {
  std::size_t righe;
  std::size_t bytePiena;
  std::size_t byteCorta;
  std::span<const Coppia> coppie;
};
constexpr Forma kIntestazioni{intestazione::kRecord, intestazione::kByte, intestazione_corta::kByte,
                              kCoppieIntestazione};
constexpr Forma kCortesie{cortesia::kRecord, cortesia::kByte, cortesia_corta::kByte, kCoppieCortesia};

void verifica(const Forma& forma, std::size_t piena, std::size_t corta) {
  if (piena < forma.righe * forma.bytePiena || corta < forma.righe * forma.byteCorta)
    throw errors::outOfRange();
}

void restringi(const Forma& forma, RecordLetto piena, Record corta) {
  verifica(forma, piena.size(), corta.size());
  for (std::size_t riga = 0; riga < forma.righe; ++riga)
    for (const Coppia& coppia : forma.coppie)
      corta[riga * forma.byteCorta + coppia.corta] = piena[riga * forma.bytePiena + coppia.piena];
}

void allarga(const Forma& forma, RecordLetto corta, Record piena) {
  verifica(forma, piena.size(), corta.size());
  for (std::size_t riga = 0; riga < forma.righe; ++riga)
    for (const Coppia& coppia : forma.coppie)
      piena[riga * forma.bytePiena + coppia.piena] = corta[riga * forma.byteCorta + coppia.corta];
}

}  // namespace

bool invioStretto(const QString& infoTipoBitmap) {
  return ecrlink::classePiccola(infoTipoBitmap);
}
bool ricezioneStretta(const QString& infoTipoBitmap) {
  return infoTipoBitmap != QLatin1String("L");
}

void restringiIntestazione(RecordLetto piena, Record corta) {
  restringi(kIntestazioni, piena, corta);
}
void allargaIntestazione(RecordLetto corta, Record piena) {
  allarga(kIntestazioni, corta, piena);
}
void restringiCortesia(RecordLetto piena, Record corta) {
  restringi(kCortesie, piena, corta);
}
void allargaCortesia(RecordLetto corta, Record piena) {
  allarga(kCortesie, corta, piena);
}

}  // namespace config
