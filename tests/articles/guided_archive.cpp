#include "articles/guided_archive.h"

#include <QTest>

void ArchivioGuidato::scrivi(const QString& campo, const QString& tasti) const {
  auto& casella = controllo<QLineEdit>(campo);
  QTest::mouseClick(&casella, Qt::LeftButton);
  casella.selectAll();
  QTest::keyClick(&casella, Qt::Key_Backspace);
  QTest::keyClicks(&casella, tasti);
}

void ArchivioGuidato::clicCella(int riga, int colonna) const {
  FlexGrid& dove = griglia();
  const QModelIndex cella = dove.model()->index(riga - 1, colonna);
  dove.scrollTo(cella);
  QTest::mouseClick(dove.viewport(), Qt::LeftButton, {}, dove.visualRect(cella).center());
}

QString ArchivioGuidato::riga(int riga) const {
  QStringList testi;
  for (int colonna = 0; colonna < griglia().Cols(); ++colonna) testi += griglia().TextMatrix(riga, colonna);
  return testi.join(u'|');
}

QStringList ArchivioGuidato::colonna(int colonna) const {
  QStringList testi;
  for (int riga = 1; riga < griglia().Rows(); ++riga) testi += griglia().TextMatrix(riga, colonna);
  return testi;
}

QStringList ArchivioGuidato::campi() const {
  QStringList testi;
  for (const QString& nome : nomiCampi()) testi += testo(nome);
  return testi;
}

QString ArchivioGuidato::fuoco() const {
  const QWidget* dove = finestra().focusWidget();
  return dove ? dove->objectName() : QString();
}

QStringList nomiCampi() {
  return {QStringLiteral("vkTextBoxPLUid"),  QStringLiteral("vkTextBoxCodEan"),
          QStringLiteral("vkTextBoxCodArt"), QStringLiteral("vkTextBoxDesc"),
          QStringLiteral("vkTextBoxPrezzo"), QStringLiteral("vkTextBoxRep"),
          QStringLiteral("vkTextBoxVarPrz"), QStringLiteral("vkTextBoxPrz0")};
}
