#include "core/date_combos.h"

#include <QComboBox>
#include <QStringList>

namespace {

constexpr int kGiorni = 31;
constexpr int kMesi = 12;
constexpr int kOre = 24;
constexpr int kSessanta = 60;
constexpr int kPartiData = 3;

QComboBox* combo(const QWidget& schermo, const char* nome, QLatin1String finale) {
  return schermo.findChild<QComboBox*>(QLatin1String(nome) + finale);
}

/// Texts of at least two digits from the first to the last number.
void riempi(QComboBox* lista, int primo, int ultimo) {
  if (!lista) return;
  QStringList voci;
  for (int numero = primo; numero <= ultimo; ++numero)
    voci.append(QString::number(numero).rightJustified(2, QLatin1Char('0')));
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

ComboData combiData(const QWidget& schermo, QLatin1String finale) {
  return {combo(schermo, "CmbGiorno", finale), combo(schermo, "CmbMese", finale),
          combo(schermo, "CmbAnno", finale)};
}

void RiempiComboData(const ComboData& combi, int primoAnno, int ultimoAnno) {
  riempi(combi.giorno, 1, kGiorni);
  riempi(combi.mese, 1, kMesi);
  riempi(combi.anno, primoAnno, ultimoAnno);
}

void RiempiComboOra(const QWidget& schermo, QLatin1String finale) {
  riempi(combo(schermo, "CmbOra", finale), 0, kOre - 1);
  riempi(combo(schermo, "CmbMin", finale), 0, kSessanta - 1);
  riempi(combo(schermo, "CmbSec", finale), 0, kSessanta - 1);
}

void SelezionaData(const ComboData& combi, const QComboBox& anni, const QString& data) {
  const QStringList parti = data.split(QLatin1Char('/'));
  if (parti.size() != kPartiData) return;
  seleziona(*combi.giorno, parti[0].toInt() - 1);
  seleziona(*combi.mese, parti[1].toInt() - 1);
  seleziona(*combi.anno, anni.findText(parti[2], Qt::MatchFixedString));
}

QString DataScelta(const ComboData& combi) {
  return combi.anno->currentText() + combi.mese->currentText() + combi.giorno->currentText();
}

void AbilitaComboDate(const QWidget& schermo, bool abilitate) {
  abilita(combiData(schermo, kComboInizio), abilitate);
  abilita(combiData(schermo, kComboFine), abilitate);
}

void AbilitaComboScontrino(const QWidget& schermo, bool abilitate) {
  abilita(combiData(schermo, kComboScontrino), abilitate);
}
