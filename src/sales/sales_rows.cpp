#include "sales/sales_rows.h"

#include <QStringBuilder>
#include <array>
#include <cmath>

#include "controls/FlexGrid.h"
#include "core/conversions.h"
#include "core/figures.h"
#include "core/state.h"

namespace sales {

namespace {

using elenco::Cella;
using elenco::Colonna;
using elenco::kDestra;
using elenco::kSinistra;

constexpr int kMillesimi = 1000;
constexpr int kCentesimoInMillesimi = 10;
constexpr int kDecimali = 3;
constexpr std::uint64_t kBase = 10;
/// Minus, the digits of 64 bits, the decimal sign and three decimals.
constexpr std::size_t kLunghezzaMassima = 25;
/// Amounts divided twice stand off the half by a few last binary digits.
constexpr double kScarto = 1e-15;
constexpr int kAnno = 4;
constexpr int kMeseOGiorno = 2;
/// The blank row and the totals behind the rows.
constexpr int kCoda = 2;

const QString kCampoSconto = QStringLiteral("Sconto_giornaliero");
const QColor kGiallo(Qt::yellow);
const QColor kRosso(Qt::red);

/// A whole number and thousandths of one. Put together backwards in one go: a list has four of these a row.
QString conDecimali(bool negativo, std::uint64_t intero, std::uint64_t millesimi) {
  std::array<QChar, kLunghezzaMassima> testo;
  auto inizio = testo.end();
  const auto cifra = [&inizio](std::uint64_t& resto) {
    *--inizio = QChar(static_cast<char16_t>(u'0' + resto % kBase));
    resto /= kBase;
  };
  for (int posto = 0; posto < kDecimali; ++posto) cifra(millesimi);
  *--inizio = SegnoDecimale();
  do cifra(intero);
  while (intero != 0);
  if (negativo) *--inizio = u'-';
  return QString(&*inizio, static_cast<qsizetype>(testo.end() - inizio));
}

std::uint64_t grandezza(std::int64_t valore) {
  return valore < 0 ? -static_cast<std::uint64_t>(valore) : static_cast<std::uint64_t>(valore);
}

bool nulla(const Cella& cella) {
  return cella.righe.isNull(cella.posto);
}

std::int32_t numero(const Cella& cella) {
  return nulla(cella) ? 0 : cella.righe.field(cella.posto).int32();
}

QString data(const Cella& cella) {
  return nulla(cella) ? QString() : DataAVideo(cella.righe.text(cella.posto));
}

/// Takings by pieces. Pieces that nobody counted have no price; none at all cannot be divided by.
QString prezzoMedio(const Cella& cella) {
  const int pezzi = cella.righe.column(QStringLiteral("Tot_giorn_articoli_venduti"));
  if (cella.righe.isNull(pezzi)) return {};
  const std::int32_t quanti = cella.righe.field(pezzi).int32();
  if (quanti == 0) throw errors::divisionByZero();
  const double prezzo = static_cast<double>(numero(cella)) / quanti / kCentesimi;
  cella.totale.reale += prezzo;
  return Maschera(prezzo);
}

QString pezzi(const Cella& cella) {
  const std::int32_t quanti = numero(cella);
  cella.totale.intero += quanti;
  return QString::number(quanti);
}

template <Elenco quale>
QString importo(const Cella& cella) {
  if (nulla(cella)) return quale == Elenco::Tutti ? Maschera(0) : QStringLiteral("000");
  const std::int32_t centesimi = numero(cella);
  cella.totale.intero += centesimi;
  return MascheraCentesimi(centesimi);
}

/// The filtered list does not ask for the discounts: looked up at every row, and each of them says so.
QString scontoCercato(const Cella& cella) {
  return importo<Elenco::Cerca>({cella.righe, cella.righe.column(kCampoSconto), cella.numero, cella.totale});
}

// The reception stores the article code under Codice_EAN and the EAN under Codice_Articolo, and the archives
// in the shops are full of such rows: headings and filter stay with the stored names.
constexpr auto kQuiIlCodice = u"In questa colonna la ricezione registra il codice articolo";
constexpr auto kQuiLEan = u"In questa colonna la ricezione registra il codice EAN";

template <Elenco quale>
constexpr std::array kColonne{
    Colonna{u"Nr.", 800, kDestra, nullptr, elenco::numeroDiRiga, nullptr, 0, false}.larga(u"00000"),
    Colonna{u"DATA", 1400, kSinistra, "Data", data}.larga(u"00/00/0000"),
    Colonna{u"COD. EAN", 1650, kSinistra, "Codice_EAN"}.larga(u"0000000000000").spiegata(kQuiIlCodice),
    Colonna{u"COD. ART.", 1650, kSinistra, "Codice_Articolo"}
        .larga(u"0000000000000")
        .spiegata(kQuiLEan)
        .copiata(u"Copia EAN"),
    Colonna{u"DESCRIZIONE ", 1800, kSinistra, "Descrizione"}.larga(u"LATTE UHT").cedevole(),
    Colonna{u"PR. MEDIO", 1300, kDestra, "Importo_giornaliero", prezzoMedio}.larga(u"00000,000"),
    Colonna{u"N. PEZZI", 1200, kDestra, "Tot_giorn_articoli_venduti", pezzi}.larga(u"00000,000"),
    Colonna{u"IMP. GIORN.", 1400, kDestra, "Importo_giornaliero", importo<quale>}.larga(u"000000,000"),
    Colonna{u"SC. GIORN.", 1300, kDestra, "Sconto_giornaliero",
            quale == Elenco::Tutti ? importo<quale> : scontoCercato}
        .larga(u"00000,000"),
};
static_assert(kColonne<Elenco::Tutti>.size() == kSconto + 1);

void scriviTotale(FlexGrid& griglia, int riga, ColonnaVenduto colonna, const QString& testo) {
  griglia.setTextMatrix(riga, colonna, testo);
  griglia.setCellBackColor(riga, colonna, kGiallo);
  griglia.setCellForeColor(riga, colonna, kRosso);
}

}  // namespace

elenco::Colonne ColonneVenduto(Elenco quale) {
  if (quale == Elenco::Tutti) return kColonne<Elenco::Tutti>;
  return kColonne<Elenco::Cerca>;
}

void GestGridCentral(FlexGrid& griglia) {
  elenco::Disponi(griglia, ColonneVenduto(Elenco::Tutti));
  griglia.Clear();
  griglia.setRows(FlexGrid::kFirstRow + 1);
}

elenco::EsitoElenco RiempiVenduto(FlexGrid& griglia, const store::Statement& istruzione, Elenco quale,
                                  Contesto& contesto) {
  const FlexGrid::Frozen ferma(griglia);
  const bool tutti = quale == Elenco::Tutti;
  elenco::EsitoElenco esito =
      elenco::Riempi(griglia, varGlobal().DB_Articoli, istruzione,
                     {.colonne = ColonneVenduto(quale),
                      .prefisso = tutti ? QStringLiteral("RiempiGridCentral ") : QString(),
                      .alGuasto = tutti ? elenco::AlGuasto::Ferma : elenco::AlGuasto::Prosegue,
                      .coda = kCoda,
                      .conserva = true,
                      .senzaRighe = tutti ? QStringLiteral("Nessuna vendita in archivio")
                                          : QStringLiteral("Nessuna vendita trovata")},
                     contesto);
  if (!esito.intero || esito.righe == 0) return esito;
  SetTailGriglia(griglia, FlexGrid::kFirstRow + esito.righe, esito.totali);
  griglia.setCell(FlexGrid::kFirstRow, kNr);
  return esito;
}

QString RaccontoVenduto(const elenco::EsitoElenco& esito, Elenco quale) {
  const auto quanto = [&](ColonnaVenduto colonna) {
    return esito.totali[static_cast<std::size_t>(colonna)].intero;
  };
  const QString sconti = quale == Elenco::Tutti
                             ? QStringLiteral("sconti ") + euro(quanto(kSconto))
                             : QStringLiteral("sconti non letti: li mostra «Visualizza Tutti»");
  return QStringLiteral("%1, %2, incasso %3, %4")
      .arg(quanti(esito.righe, QStringLiteral("riga di venduto"), QStringLiteral("righe di venduto")),
           quanti(quanto(kPezzi), QStringLiteral("pezzo"), QStringLiteral("pezzi")), euro(quanto(kImporto)),
           sconti);
}

void SetTailGriglia(FlexGrid& griglia, int riga, const std::vector<elenco::Totale>& totali) {
  griglia.setTextMatrix(riga, kData, QStringLiteral(" "));
  const int totale = riga + 1;
  scriviTotale(griglia, totale, kData, QStringLiteral("TOTALE"));
  scriviTotale(griglia, totale, kPrezzoMedio, Maschera(totali[kPrezzoMedio].reale));
  scriviTotale(griglia, totale, kPezzi, MascheraIntero(totali[kPezzi].intero));
  scriviTotale(griglia, totale, kImporto, MascheraCentesimi(totali[kImporto].intero));
  scriviTotale(griglia, totale, kSconto, MascheraCentesimi(totali[kSconto].intero));
  griglia.fitColumnsTo(totale);
}

QString Maschera(double valore) {
  const double mille = std::abs(valore) * kMillesimi;
  const auto intero = static_cast<std::uint64_t>(std::floor(mille + mille * kScarto + 0.5));
  return conDecimali(valore < 0 && intero != 0, intero / kMillesimi, intero % kMillesimi);
}

QString MascheraIntero(std::int64_t valore) {
  return conDecimali(valore < 0, grandezza(valore), 0);
}

QString MascheraCentesimi(std::int64_t centesimi) {
  const std::uint64_t quanti = grandezza(centesimi);
  constexpr std::uint64_t cento = kCentesimi;
  return conDecimali(centesimi < 0, quanti / cento, quanti % cento * kCentesimoInMillesimi);
}

QString DataAVideo(const QString& data) {
  const auto parte = [&data](int inizio, int lunghezza) { return QStringView(data).mid(inizio, lunghezza); };
  return parte(kAnno + kMeseOGiorno, kMeseOGiorno) % u'/' % parte(kAnno, kMeseOGiorno) % u'/' %
         parte(0, kAnno);
}

}  // namespace sales
