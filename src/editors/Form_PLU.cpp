#include "editors/Form_PLU.h"

#include <array>

namespace editors {

namespace {

using config::Record;
using config::RecordLetto;

std::uint8_t attributi(RecordLetto record) {
  return config::leggiByte(record, config::plu::kAttributi);
}

template <std::uint8_t kBit>
QString mostraBit(RecordLetto record) {
  return (attributi(record) & kBit) != 0 ? QStringLiteral("S") : QStringLiteral("N");
}

/// The first of the two columns builds the byte from 0: bits that neither of them stands for go.
void registraVarPrezzo(Record record, const QString& testo) {
  config::scriviByte(record, config::plu::kAttributi, siNo(testo) ? config::plu::kVarPrezzo : 0);
}

void registraPrezzoZero(Record record, const QString& testo) {
  const auto bit = siNo(testo) ? config::plu::kPrezzoZero : 0;
  config::scriviByte(record, config::plu::kAttributi, static_cast<std::uint8_t>(attributi(record) | bit));
}

constexpr std::array kColonne{
    numero(u"NUM. PLU", u"0000"),
    colonna<config::plu::kDescrizione>(u"DESCRIZIONE", u"LATTE UHT INTERO 1 LITRO", kLibera),
    colonna<config::plu::kPrezzo>(u"PREZZO", u"99999,99", kImporto),
    // The byte as it stands: a department that came from the articles counts from 0, one that is typed here
    // from 1. The till's programme has both.
    colonna<config::plu::kReparto>(u"REPARTO", u"000", kReparto),
    parte(u"VAR. PREZZO", mostraBit<config::plu::kVarPrezzo>, registraVarPrezzo, kTipoSN),
    parte(u"PREZZO ZERO", mostraBit<config::plu::kPrezzoZero>, registraPrezzoZero, kTipoSN),
};

constexpr std::array kLegenda{u"Prezzo --> 0 ..... 99999,99", u"Reparto --> 1 ... 32",
                              u"Var. Prezzo --> S = SI", u"Prezzo Zero --> S = SI"};

constexpr Tabella kTabella{.schermata = "Form_PLU",
                           .titolo = u"Gestione PLU",
                           .griglia = "MSFlexGridPLU",
                           .riempimento = "RiempiGridPLU",
                           .famiglia = config::kPLU,
                           .modificato = &VarGestionePRG::ModificaPLU,
                           .colonne = kColonne,
                           .uno = u"PLU",
                           .molti = u"PLU",
                           .legenda = kLegenda};

}  // namespace

const Tabella& TabellaPLU() {
  return kTabella;
}

void SalvaPLUGriglia(const FlexGrid& griglia) {
  SalvaGriglia(griglia, kTabella);
}

}  // namespace editors

Form_PLU::Form_PLU(Contesto& contesto)
    : EditorGriglia(contesto, editors::kTabella, editors::SalvaPLUGriglia) {}
