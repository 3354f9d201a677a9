#include "core/date_combos.h"

#include <QComboBox>
#include <QStringList>

#include "controls/wheel_guard.h"
#include "platform/clock.h"

namespace {

constexpr int kGiorni = 31;
constexpr int kMesi = 12;
constexpr int kOre = 24;
constexpr int kSessanta = 60;
constexpr int kPartiData = 3;

/// Names of the lists of one date.
struct Nomi {
  const char* giorno;
  const char* mese;
  const char* anno;
  const char* ora;
  const char* minuto;
  const char* secondo;
};

Nomi nomi(DataDiSchermo quale) {
  switch (quale) {
    case DataDiSchermo::Inizio:
      return {"CmbGiorno", "CmbMese", "CmbAnno", "CmbOra", "CmbMin", "CmbSec"};
    case DataDiSchermo::Fine:
      return {"CmbGiornoFine", "CmbMeseFine", "CmbAnnoFine", "CmbOraFine", "CmbMinFine", "CmbSecFine"};
    case DataDiSchermo::Scontrino:
      break;
  }
  return {"ComboGiornoScont", "ComboMeseScont", "ComboAnnoScont", "", "", ""};
}

QComboBox* combo(const QWidget& schermo, const char* nome) {
  return schermo.findChild<QComboBox*>(QLatin1String(nome));
}

/// Texts of at least two digits from the first to the last number.
void riempi(QComboBox* lista, int primo, int ultimo) {
  if (!lista) return;
  QStringList voci;
  for (int numero = primo; numero <= ultimo; ++numero)
    voci.append(QString::number(numero).rightJustified(2, QLatin1Char('0')));
  wheelNeedsFocus(*lista);
  // Without a least length every entry is measured twice, a hundred of them for the years: for the width that
  // the list would like, and again for the least one. Letters are at least as wide as digits.
  if (!voci.empty()) lista->setMinimumContentsLength(static_cast<int>(voci.last().size()));
  lista->clear();
  lista->addItems(voci);
  lista->setCurrentIndex(0);
}

void seleziona(QComboBox& lista, int posizione) {
  if (posizione >= 0 && posizione < lista.count()) lista.setCurrentIndex(posizione);
}

void abilita(const ComboData& combi, bool abilitate) {
  for (QComboBox* lista : {combi.giorno, combi.mese, combi.anno})
    if (lista) lista->setEnabled(abilitate);
}

}  // namespace

ComboData combiData(const QWidget& schermo, DataDiSchermo quale) {
  const Nomi questi = nomi(quale);
  return {combo(schermo, questi.giorno), combo(schermo, questi.mese), combo(schermo, questi.anno)};
}

void RiempiComboData(const ComboData& combi, int primoAnno, int ultimoAnno) {
  riempi(combi.giorno, 1, kGiorni);
  riempi(combi.mese, 1, kMesi);
  riempi(combi.anno, primoAnno, ultimoAnno);
}

void RiempiComboOra(const QWidget& schermo, DataDiSchermo quale) {
  const Nomi questi = nomi(quale);
  riempi(combo(schermo, questi.ora), 0, kOre - 1);
  riempi(combo(schermo, questi.minuto), 0, kSessanta - 1);
  riempi(combo(schermo, questi.secondo), 0, kSessanta - 1);
}

void SelezionaData(const ComboData& combi, const QComboBox& anni, const QString& data) {
  const QStringList parti = data.split(QLatin1Char('/'));
  if (parti.size() != kPartiData) return;
  seleziona(*combi.giorno, parti[0].toInt() - 1);
  seleziona(*combi.mese, parti[1].toInt() - 1);
  seleziona(*combi.anno, anni.findText(parti[2], Qt::MatchFixedString));
}

void SelezionaOggi(const ComboData& combi, const QComboBox& anni, const Clock& orologio) {
  SelezionaData(combi, anni, orologio.today().toString(QStringLiteral("dd/MM/yyyy")));
}

QString DataScelta(const ComboData& combi) {
  return combi.anno->currentText() + combi.mese->currentText() + combi.giorno->currentText();
}

void AbilitaComboDate(const QWidget& schermo, bool abilitate) {
  abilita(combiData(schermo, DataDiSchermo::Inizio), abilitate);
  abilita(combiData(schermo, DataDiSchermo::Fine), abilitate);
}

void AbilitaComboScontrino(const QWidget& schermo, bool abilitate) {
  abilita(combiData(schermo, DataDiSchermo::Scontrino), abilitate);
}
