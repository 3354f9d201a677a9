#include "graphics/catalogue_grid.h"

#include "controls/FlexGrid.h"
#include "core/reactions.h"
#include "graphics/catalogue.h"

namespace graphics {

namespace {

constexpr int kRighe = static_cast<int>(kImmagini) + 1;
// Their samples ask for more in every size of letters.
constexpr int kTwipNumero = 450;
constexpr int kTwipTipo = 900;
constexpr int kTwipNome = 1200;

}  // namespace

void GestGridGrafica(FlexGrid& griglia) {
  griglia.setCols(kColonne);
  griglia.setRows(kRighe);
  griglia.setWholeRows(true);
  griglia.setTextMatrix(0, kNumero, QStringLiteral("NUM."));
  griglia.setTextMatrix(0, kTipologia, QStringLiteral("TIPOLOGIA"));
  griglia.setTextMatrix(0, kNomeFile, QStringLiteral("NOME FILE GRAFICA"));
  griglia.setColAlignment(kNumero, Qt::AlignRight | Qt::AlignVCenter);
  griglia.setColWidth(kNumero, kTwipNumero);
  griglia.setColWidth(kTipologia, kTwipTipo);
  griglia.setColWidth(kNomeFile, kTwipNome);
  griglia.setColSample(kNumero, QStringLiteral("12"));
  griglia.setColSample(kTipologia, QStringLiteral("Merceologico1"));
  griglia.setColSample(kNomeFile, QStringLiteral("Merceologico1.bmp"));
  griglia.setSpareColumn(kNomeFile);
}

void RiempiGridGrafica(FlexGrid& griglia, Utente& utente) {
  reazioni::oppure(
      [&] {
        const FlexGrid::Frozen fermo(griglia);
        int riga = 0;
        for (const VoceGrafica& voce : modGra1().RecGrafica) {
          ++riga;
          griglia.setTextMatrix(riga, kNumero, QString::number(riga));
          griglia.setTextMatrix(riga, kTipologia, voce.tipo);
          griglia.setTextMatrix(riga, kNomeFile, voce.file);
        }
      },
      [&](const Errore& errore) { reazioni::segnala(utente, QStringLiteral("RiempiGridGrafica "), errore); });
}

}  // namespace graphics
