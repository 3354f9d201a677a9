#include "demo/momenti.h"

#include <QApplication>
#include <QFile>
#include <QWidget>

Regista::Quando visibile(const QString& nome) {
  return [nome] { return finestra(nome) != nullptr; };
}

bool acceso(const QString& nomeFinestra, const QString& nome) {
  QWidget* aperta = finestra(nomeFinestra);
  auto* comando = aperta == nullptr ? nullptr : aperta->findChild<QWidget*>(nome);
  return comando != nullptr && comando->isEnabled();
}

Regista::Quando abilitato(const QString& nomeFinestra, const QString& nome) {
  return [=] {
    return acceso(nomeFinestra, nome) && QApplication::activeModalWidget() == finestra(nomeFinestra);
  };
}

std::filesystem::path percorso(const QString& nome) {
  return QFile::encodeName(nome).toStdString();
}
