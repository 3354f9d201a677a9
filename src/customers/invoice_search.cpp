#include "customers/invoice_search.h"

#include <QStringList>

#include "core/context.h"
#include "core/conversions.h"
#include "customers/customer_records.h"
#include "customers/customer_state.h"
#include "platform/clock.h"
#include "platform/text/windows1252.h"
#include "platform/ui/user_port.h"

namespace customers {

namespace {

constexpr int kPrimoAnno = 1800;
/// Places of the parts in dd/mm/yyyy.
constexpr qsizetype kMese = 3;
constexpr qsizetype kAnno = 6;
constexpr qsizetype kCifreMese = 2;
constexpr int kGiorniFebbraio = 28;
constexpr int kOgniQuanti = 4;

/// Days of a month; 0 for what is none.
int giorniDelMese(const QString& mese, double anno) {
  static const QStringList kTrentuno{QStringLiteral("01"), QStringLiteral("03"), QStringLiteral("05"),
                                     QStringLiteral("07"), QStringLiteral("08"), QStringLiteral("10"),
                                     QStringLiteral("12")};
  static const QStringList kTrenta{QStringLiteral("04"), QStringLiteral("06"), QStringLiteral("09"),
                                   QStringLiteral("11")};
  if (kTrentuno.contains(mese)) return 31;
  if (kTrenta.contains(mese)) return 30;
  if (mese != QStringLiteral("02")) return 0;
  // No rule of the centuries: among the years of the shops' invoices none was left out.
  return static_cast<int>(anno) % kOgniQuanti == 0 ? kGiorniFebbraio + 1 : kGiorniFebbraio;
}

/// A part of a day as its list holds it: digits, or the statement breaks.
auto cifre(const QString& parte) {
  return store::rowId(parte);
}

store::Statement giorno(const Giorno& quale) {
  return store::Statement() + cifre(quale.giorno) + u"/" + cifre(quale.mese) + u"/" + cifre(quale.anno);
}

/// False if the day was refused and the person told.
bool accettata(const Giorno& giorno, Contesto& contesto) {
  if (CheckData(giorno.scritto(), contesto.orologio) == kDataValida) return true;
  contesto.utente.MsgBox(
      QStringLiteral("La Data di inizio ") + giorno.scritto() +
          QStringLiteral(" e' invalida\r\n"
                         "Controllare che il giorno immesso è compatibile con il mese prescelto"),
      Icon::Information, QStringLiteral("Errore"));
  return false;
}

}  // namespace

store::Statement StatementFatture() {
  return store::Statement(
      u"SELECT TAB_ANAG_CLIENTI.ID_Cliente AS GET_ID_Cliente, "
      u"TAB_ANAG_CLIENTI.Ragione_Sociale,TAB_ANAG_CLIENTI.Indirizzo,TAB_ANAG_CLIENTI.Partita_IVA, "
      u"TAB_FATTURE.ID_Cliente AS TAB_FATTURE_ID_Cliente, TAB_FATTURE.NumFattura, TAB_FATTURE.Tipo_Fattura, "
      u"TAB_FATTURE.DataFattura, TAB_FATTURE.Corr_Non_Pagato,TAB_FATTURE.Importo_Fattura, "
      u"TAB_FATTURE.Imponibile, TAB_FATTURE.Imposta,TAB_FATTURE.Nota "
      u"FROM TAB_ANAG_CLIENTI LEFT JOIN TAB_FATTURE ON "
      u"TAB_ANAG_CLIENTI.ID_Cliente = TAB_FATTURE.ID_Cliente  "
      u"ORDER BY TAB_ANAG_CLIENTI.Ragione_Sociale,TAB_FATTURE.NumFattura ASC");
}

QString Giorno::scritto() const {
  return giorno + u'/' + mese + u'/' + anno;
}

store::Statement StatementCercaFatture(const RicercaFatture& ricerca) {
  store::Statement istruzione =
      store::Statement(
          u"SELECT TAB_ANAG_CLIENTI.ID_Cliente AS GET_ID_Cliente, TAB_ANAG_CLIENTI.Ragione_Sociale, "
          u"TAB_ANAG_CLIENTI.Partita_iva, TAB_FATTURE.ID_Cliente AS TAB_FATTURE_ID_Cliente, "
          u"TAB_FATTURE.NumFattura, TAB_FATTURE.Tipo_Fattura, TAB_FATTURE.DataFattura, "
          u"TAB_FATTURE.Corr_Non_Pagato,TAB_FATTURE.Importo_Fattura, TAB_FATTURE.Imponibile, "
          u"TAB_FATTURE.Imposta, TAB_FATTURE.Nota "
          u"FROM TAB_ANAG_CLIENTI LEFT JOIN TAB_FATTURE ON "
          u"TAB_ANAG_CLIENTI.ID_Cliente = TAB_FATTURE.ID_Cliente "
          u"WHERE (TAB_FATTURE.DataFattura >= #") +
      giorno(ricerca.inizio) + u" 00.00.00# AND TAB_FATTURE.DataFattura  <= #" + giorno(ricerca.fine) +
      u" 23.59.59#) ";
  if (ricerca.cliente) istruzione += u" AND TAB_FATTURE.ID_Cliente = " + store::number(*ricerca.cliente);
  if (!ricerca.ragioneSociale.isEmpty())
    istruzione +=
        store::beginsWith(u" AND Ragione_Sociale like '", windows1252::toUpper(ricerca.ragioneSociale));
  if (!ricerca.partitaIVA.isEmpty())
    istruzione += store::beginsWith(u" AND Partita_iva like '", ricerca.partitaIVA);
  if (!ricerca.numero.isEmpty()) istruzione += store::beginsWith(u" AND NumFattura like '", ricerca.numero);
  istruzione += u" ORDER BY TAB_ANAG_CLIENTI.Ragione_Sociale,TAB_FATTURE.NumFattura ASC";
  return istruzione;
}

std::optional<std::int64_t> ClienteDelFiltro(const FiltroFatture& filtro) {
  bool numero = false;
  const qlonglong codice = filtro.codice.toLongLong(&numero);
  if (!numero || codice < 0) return std::nullopt;
  return codice;
}

QString ChiMostra(const FiltroFatture& filtro) {
  if (ClienteDelFiltro(filtro) == kClienteAnonimo) return QStringLiteral("Cliente: 0 (anonimo)");
  return QStringLiteral("Cliente: %1 %2").arg(filtro.codice, filtro.ragioneSociale).trimmed();
}

std::int16_t CheckData(const QString& data, const Clock& orologio) {
  const QChar barra(u'/');
  if (data.size() <= kAnno || data.at(kMese - 1) != barra || data.at(kAnno - 1) != barra)
    return kDataRifiutata;
  const double anno = Val(data.mid(kAnno));
  if (anno > orologio.today().year() || anno < kPrimoAnno) return kDataRifiutata;
  return Val(data) <= giorniDelMese(data.mid(kMese, kCifreMese), anno) ? kDataValida : kDataRifiutata;
}

EsitoPeriodo ControllaPeriodo(const Giorno& inizio, const Giorno& fine, Contesto& contesto) {
  if (!accettata(inizio, contesto)) return EsitoPeriodo::InizioRifiutato;
  return accettata(fine, contesto) ? EsitoPeriodo::Valido : EsitoPeriodo::FineRifiutata;
}

}  // namespace customers
