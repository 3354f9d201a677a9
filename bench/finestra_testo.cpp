#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <cstdlib>

#include "bench/dipinta.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication applicazione(argc, argv);
  QWidget finestra;
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addWidget(new QLabel(QStringLiteral("Gestione Articoli MMC")));
  finestra.resize(1000, 700);
  const Dipinta fine(finestra);
  finestra.show();
  std::_Exit(QApplication::exec());
}
