#include "core/schermate.h"

#include <QDialog>
#include <algorithm>

#include "core/contesto.h"
#include "platform/errore.h"

Schermate::~Schermate() { scaricaTutte(); }

void Schermate::registra(const QString& nome, Fabbrica fabbrica) { fabbriche_[nome] = std::move(fabbrica); }

bool Schermate::registrata(const QString& nome) const { return fabbriche_.contains(nome); }

QWidget& Schermate::carica(const QString& nome, Contesto& contesto) {
  if (QWidget* schermo = trova(nome)) return *schermo;
  const auto fabbrica = fabbriche_.find(nome);
  if (fabbrica == fabbriche_.end())
    throw Errore{errore::kIndice, QStringLiteral("Schermata non registrata: ") + nome};
  QWidget* schermo = fabbrica->second(contesto);
  schermo->setAttribute(Qt::WA_DeleteOnClose);
  aperte_.emplace_back(nome, schermo);
  return *schermo;
}

QWidget& Schermate::mostra(const QString& nome, Contesto& contesto) {
  QWidget& schermo = carica(nome, contesto);
  schermo.show();
  schermo.raise();
  schermo.activateWindow();
  return schermo;
}

void Schermate::mostraModale(const QString& nome, Contesto& contesto) {
  QWidget& schermo = carica(nome, contesto);
  if (auto* dialogo = qobject_cast<QDialog*>(&schermo)) {
    dialogo->setAttribute(Qt::WA_DeleteOnClose, false);
    dialogo->exec();
  }
  scarica(nome);
}

QWidget* Schermate::trova(const QString& nome) const {
  for (const auto& [aperto, schermo] : aperte_)
    if (aperto == nome && schermo) return schermo;
  return nullptr;
}

void Schermate::scarica(const QString& nome) {
  QPointer<QWidget> schermo = trova(nome);
  std::erase_if(aperte_, [&](const auto& voce) { return voce.first == nome || !voce.second; });
  if (!schermo) return;
  schermo->close();
  if (schermo) schermo->deleteLater();
}

void Schermate::scaricaTutte() {
  while (!aperte_.empty()) scarica(QString(aperte_.front().first));
}
