#include "editors/Form_Reparti.h"

#include <array>

#include "platform/error.h"

namespace editors {

namespace {

using config::AttributiReparto;
using config::Record;
using config::RecordLetto;

constexpr int kOtto = 8;

/// VAT rate or tallon.
int unoOtto(const QString& testo) {
  const int valore = TestoInUnByte(testo);
  if (valore < 1 || valore > kOtto) throw errors::overflow();
  return valore;
}

AttributiReparto attributi(RecordLetto record) {
  return config::sballaAttributi(config::leggiByte(record, config::reparto::kAttributi));
}

template <int AttributiReparto::*kParte>
QString mostraNumero(RecordLetto record) {
  return QString::number(attributi(record).*kParte);
}

template <QString AttributiReparto::*kParte>
QString mostraLettera(RecordLetto record) {
  return attributi(record).*kParte;
}

void registraAttributi(Record record, const AttributiReparto& nuovi) {
  config::scriviByte(record, config::reparto::kAttributi, config::imballaAttributi(nuovi));
}

template <int AttributiReparto::*kParte>
void registraNumero(Record record, const QString& testo) {
  AttributiReparto nuovi = attributi(record);
  nuovi.*kParte = unoOtto(testo);
  registraAttributi(record, nuovi);
}

template <QString AttributiReparto::*kParte>
void registraLettera(Record record, const QString& testo) {
  AttributiReparto nuovi = attributi(record);
  nuovi.*kParte = testo;
  registraAttributi(record, nuovi);
}

template <int AttributiReparto::*kParte>
constexpr Colonna numerata(const char16_t* testata) {
  return parte(testata, mostraNumero<kParte>, registraNumero<kParte>, kUnoOtto);
}

template <QString AttributiReparto::*kParte>
constexpr Colonna letterata(const char16_t* testata, const Regola& regola) {
  return parte(testata, mostraLettera<kParte>, registraLettera<kParte>, regola);
}

constexpr std::array kColonne{
    numero(u"N.REP.", u"00"),
    colonna<config::reparto::kDescrizione>(u"DESCRIZIONE", u"LATTE UHT INTERO 1 LITRO", kLibera),
    colonna<config::reparto::kPrezzo>(u"PREZZO", u"99999,99", kImporto),
    numerata<&AttributiReparto::iva>(u"IVA"),
    colonna<config::reparto::kMinValore>(u"MIN VALORE", u"99999,99", kImporto),
    colonna<config::reparto::kMaxValore>(u"MAX VALORE", u"99999,99", kImporto),
    letterata<&AttributiReparto::tipo>(u"TIPO", kTipoMS),
    colonna<config::reparto::kSconto>(u"% SCONTO", u"99,99", kPercentuale),
    letterata<&AttributiReparto::battutaSingola>(u"B.SINGOLA", kTipoSN),
    numerata<&AttributiReparto::tallon>(u"ID TAL."),
};

constexpr std::array kLegenda{
    u"Prezzo        -->  0 ..... 99999,99",
    u"Max Valore --> 0 ..... 99999,99",
    u"IVA              --> 1 ... 8",
    u"Perc. di Sconto --> S = SI.",
    u"Tipo di Sconto--> S = Sconto",
    u"Battuta singola --> S = SI",
    u"TALLON ID    --> 1 ... 8",
};

constexpr Tabella kTabella{.schermata = "Form_Reparti",
                           .titolo = u"Reparti",
                           .griglia = "MSFlexGridReparti",
                           .riempimento = "RiempiGridReparti",
                           .famiglia = config::kReparto,
                           .modificato = &VarGestionePRG::ModificaReparti,
                           .colonne = kColonne,
                           .uno = u"reparto",
                           .molti = u"reparti",
                           .legenda = kLegenda};

}  // namespace

const Tabella& TabellaReparti() {
  return kTabella;
}

void SalvaReparti(const FlexGrid& griglia) {
  SalvaGriglia(griglia, kTabella);
}

}  // namespace editors

Form_Reparti::Form_Reparti(Contesto& contesto)
    : EditorGriglia(contesto, editors::kTabella, editors::SalvaReparti) {}
