#include "sales/sales_rows.h"

#include <QLocale>
#include <QStringBuilder>
#include <algorithm>
#include <array>
#include <cmath>

namespace sales {

namespace {

constexpr double kCentesimi = 100;
constexpr int kMillesimi = 1000;
constexpr int kDecimali = 3;
constexpr int kBase = 10;
constexpr qsizetype kLunghezzaSegno = 8;
/// Minus, the digits of 64 bits and the decimal sign.
constexpr std::size_t kLunghezzaMassima = 32;
/// Amounts divided twice stand off the half by a few last binary digits.
constexpr double kScarto = 1e-15;
constexpr int kAnno = 4;
constexpr int kMeseOGiorno = 2;

/// Position of a column that is looked up when it is read.
constexpr int kPerNome = -1;
const QString kCampoSconto = QStringLiteral("Sconto_giornaliero");

[[noreturn]] void divisionePerZero() {
  throw Errore{errors::kDivisionByZero, QStringLiteral("Divisione per zero")};
}

double inEuro(std::int64_t centesimi) {
  return static_cast<double>(centesimi) / kCentesimi;
}

}  // namespace

const std::array<DescrizioneColonna, kColonneVenduto>& colonneVenduto() {
  static const std::array<DescrizioneColonna, kColonneVenduto> colonne{
      {{QStringLiteral("Nr."), 800, true},
       {QStringLiteral("DATA"), 1400, false},
       {QStringLiteral("COD. EAN"), 1650, false},
       {QStringLiteral("COD. ART."), 1650, false},
       {QStringLiteral("DESCRIZIONE "), 3000, false},
       {QStringLiteral("PR. MEDIO"), 1300, true},
       {QStringLiteral("N. PEZZI"), 1200, true},
       {QStringLiteral("IMP. GIORN."), 1400, true},
       {QStringLiteral("SC. GIORN."), 1300, true}}};
  return colonne;
}

QString Maschera(double valore) {
  return Maschera(valore, QLocale().decimalPoint());
}

QString Maschera(double valore, const QString& decimale) {
  const double mille = std::abs(valore) * kMillesimi;
  const auto intero = static_cast<std::int64_t>(std::floor(mille + mille * kScarto + 0.5));
  // Put together backwards in one go: a list has three of these a row.
  std::array<QChar, kLunghezzaMassima> testo;
  auto inizio = testo.end();
  std::int64_t resto = intero;
  const auto cifra = [&] {
    *--inizio = QChar(static_cast<char16_t>(u'0' + resto % kBase));
    resto /= kBase;
  };
  for (int posto = 0; posto < kDecimali; ++posto) cifra();
  const QStringView segno = QStringView(decimale).left(kLunghezzaSegno);
  inizio = std::copy_backward(segno.begin(), segno.end(), inizio);
  do cifra();
  while (resto != 0);
  if (valore < 0 && intero != 0) *--inizio = u'-';
  return QString(&*inizio, static_cast<qsizetype>(testo.end() - inizio));
}

QString DataAVideo(const QString& data) {
  const auto parte = [&data](int inizio, int lunghezza) { return QStringView(data).mid(inizio, lunghezza); };
  return parte(kAnno + kMeseOGiorno, kMeseOGiorno) % u'/' % parte(kAnno, kMeseOGiorno) % u'/' %
         parte(0, kAnno);
}

LettoreVenduto::LettoreVenduto(store::Recordset righe, Elenco elenco)
    : righe_(std::move(righe)),
      elenco_(elenco),
      data_(righe_.column(QStringLiteral("Data"))),
      ean_(righe_.column(QStringLiteral("Codice_EAN"))),
      articolo_(righe_.column(QStringLiteral("Codice_Articolo"))),
      descrizione_(righe_.column(QStringLiteral("Descrizione"))),
      importo_(righe_.column(QStringLiteral("Importo_giornaliero"))),
      pezzi_(righe_.column(QStringLiteral("Tot_giorn_articoli_venduti"))),
      sconto_(elenco == Elenco::Tutti ? righe_.column(kCampoSconto) : kPerNome),
      decimale_(QLocale().decimalPoint()) {}

void LettoreVenduto::avanti() {
  righe_.MoveNext();
  ++riga_;
}

QString LettoreVenduto::testo(int posizione) const {
  return righe_.isNull(posizione) ? QString() : righe_.field(posizione).text();
}

std::int32_t LettoreVenduto::numero(int posizione) const {
  return righe_.isNull(posizione) ? 0 : righe_.field(posizione).int32();
}

QString LettoreVenduto::prezzoMedio(SommeVenduto& somme) const {
  const std::int32_t pezzi = numero(pezzi_);
  if (pezzi == 0) divisionePerZero();
  const double prezzo = static_cast<double>(numero(importo_)) / pezzi / kCentesimi;
  somme.prezzi += prezzo;
  return Maschera(prezzo, decimale_);
}

QString LettoreVenduto::importo(int posizione, std::int64_t& somma) const {
  if (righe_.isNull(posizione))
    return elenco_ == Elenco::Tutti ? Maschera(0, decimale_) : QStringLiteral("000");
  const std::int32_t centesimi = numero(posizione);
  somma += centesimi;
  return Maschera(inEuro(centesimi), decimale_);
}

QString LettoreVenduto::cella(ColonnaVenduto colonna, SommeVenduto& somme) const {
  switch (colonna) {
    case kNr:
      return QString::number(riga_);
    case kData:
      return righe_.isNull(data_) ? QString() : DataAVideo(testo(data_));
    // The reception stores the article code under Codice_EAN and the EAN under Codice_Articolo, and the
    // archives in the shops are full of such rows: headings and filter stay with the stored names.
    case kCodEan:
      return testo(ean_);
    case kCodArt:
      return testo(articolo_);
    case kDescrizione:
      return testo(descrizione_);
    case kPrezzoMedio:
      return prezzoMedio(somme);
    case kPezzi: {
      const std::int32_t pezzi = numero(pezzi_);
      somme.pezzi += pezzi;
      return QString::number(pezzi);
    }
    case kImporto:
      return importo(importo_, somme.importi);
    case kSconto:
      // The filtered list does not ask for it: looked up at every row, and each of them says so.
      return importo(sconto_ == kPerNome ? righe_.column(kCampoSconto) : sconto_, somme.sconti);
    case kColonneVenduto:
      break;
  }
  return {};
}

std::array<QString, kColonneVenduto> rigaTotale(const SommeVenduto& somme) {
  std::array<QString, kColonneVenduto> celle;
  celle[kData] = QStringLiteral("TOTALE");
  celle[kPrezzoMedio] = Maschera(somme.prezzi);
  celle[kPezzi] = Maschera(static_cast<double>(somme.pezzi));
  celle[kImporto] = Maschera(inEuro(somme.importi));
  celle[kSconto] = Maschera(inEuro(somme.sconti));
  return celle;
}

bool inEvidenza(ColonnaVenduto colonna) {
  return colonna == kData || colonna >= kPrezzoMedio;
}

}  // namespace sales
