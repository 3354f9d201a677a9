#include "config/configuration_changes.h"

#include <QStringList>

#include "config/configuration_file.h"
#include "core/figures.h"

namespace config {

namespace {

/// How a family is told: one record, several.
struct Nome {
  const Famiglia* famiglia;
  const char16_t* uno;
  const char16_t* molti;
};

constexpr std::array kNomi{
    Nome{&kIntestazione, u"riga di intestazione", u"righe di intestazione"},
    Nome{&kCortesia, u"riga di cortesia", u"righe di cortesia"},
    Nome{&kReparto, u"reparto", u"reparti"},
    Nome{&kPLU, u"PLU", u"PLU"},
    Nome{&kIVA, u"aliquota", u"aliquote"},
    Nome{&kValuta, u"valuta", u"valute"},
    Nome{&kOperatore, u"operatore", u"operatori"},
    Nome{&kLogo, u"voce del calendario grafico", u"voci del calendario grafico"},
};

QByteArray intero(const QByteArray& file) {
  return file.leftJustified(static_cast<qsizetype>(kByteFile), '\0', true);
}

bool diverso(const QByteArray& prima, const QByteArray& dopo, std::size_t inizio, std::size_t byte) {
  const auto da = static_cast<qsizetype>(inizio);
  const auto quanti = static_cast<qsizetype>(byte);
  return QByteArrayView(prima).sliced(da, quanti) != QByteArrayView(dopo).sliced(da, quanti);
}

int recordDiversi(const QByteArray& prima, const QByteArray& dopo, const Famiglia& famiglia) {
  int diversi = 0;
  for (std::size_t i = 0; i < famiglia.record; ++i)
    if (diverso(prima, dopo, kInizioImmagine + famiglia.inizio + i * famiglia.byte, famiglia.byte)) ++diversi;
  return diversi;
}

}  // namespace

QString RaccontoModifiche(const QByteArray& prima, const QByteArray& dopo) {
  const QByteArray vecchio = intero(prima);
  const QByteArray nuovo = intero(dopo);
  QStringList parti;
  if (diverso(vecchio, nuovo, kInizioNegozio, negozio::kByte)) parti += QStringLiteral("dati del negozio");
  for (const Nome& nome : kNomi)
    if (const int diversi = recordDiversi(vecchio, nuovo, *nome.famiglia); diversi > 0)
      parti += quanti(diversi, QString::fromUtf16(nome.uno), QString::fromUtf16(nome.molti));
  if (recordDiversi(vecchio, nuovo, kParametri) > 0) parti += QStringLiteral("opzioni generali");
  return parti.join(QStringLiteral(", "));
}

}  // namespace config
