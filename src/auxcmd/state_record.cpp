#include "auxcmd/state_record.h"

#include <algorithm>

#include "core/conversions.h"
#include "core/state.h"

namespace auxcmd {

namespace {

constexpr std::uint8_t kScontrinoChiuso = 'C';

const Parola* parolaDi(std::uint8_t lettera, const CampoStato& campo) {
  const auto trovata = std::ranges::find(campo.parole, lettera, &Parola::lettera);
  return trovata == campo.parole.end() ? nullptr : &*trovata;
}

QString crudo(RecordStato record, const CampoStato& campo) {
  return ByteInTesto(record.subspan(campo.inizio, campo.larghezza));
}

}  // namespace

bool RiempiStatoECR(std::span<const std::uint8_t> byte) {
  std::array<std::uint8_t, kByteStato>& record = varGestionePRG().StatoECR;
  if (byte.size() != record.size()) return false;
  std::ranges::copy(byte, record.begin());
  return true;
}

QString testoStato(RecordStato record, const CampoStato& campo) {
  switch (campo.genere) {
    case CampoStato::Genere::Testo:
      return crudo(record, campo);
    case CampoStato::Genere::TipoScontrino:
      // The till leaves the kind of its last receipt there: with none open it would say something untrue.
      if (record[stato::kStatoScontrino.inizio] == kScontrinoChiuso) return QStringLiteral("--------");
      [[fallthrough]];
    case CampoStato::Genere::Lettera:
      break;
  }
  const Parola* parola = parolaDi(record[campo.inizio], campo);
  return parola ? QString::fromUtf16(parola->parola) : crudo(record, campo);
}

Salute saluteStato(RecordStato record, const CampoStato& campo) {
  const std::uint8_t lettera = record[campo.inizio];
  if (!campo.distinto || lettera == 0) return Salute::Ignota;
  const Parola* parola = parolaDi(lettera, campo);
  return parola ? parola->salute : Salute::Attenzione;
}

}  // namespace auxcmd
