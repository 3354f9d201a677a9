#include "bench/banco.h"

#include <QCoreApplication>
#include <QDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "articles/article_database.h"
#include "bench/base_sqlite.h"
#include "core/stato.h"
#include "platform/net/rete.h"

namespace fs = std::filesystem;

Risposta UtenteBanco::MsgBox(const QString& testo, Icona icona, const QString&, Pulsanti) {
  if (icona == Icona::Critica) {
    std::fprintf(stderr, "the work failed: %s\n", qPrintable(testo));
    std::exit(2);
  }
  return Risposta::OK;
}

std::optional<QString> UtenteBanco::FinestraApri(const FinestraFile&) {
  return daAprire;
}
std::optional<QString> UtenteBanco::FinestraSalva(const FinestraFile&) {
  return daSalvare;
}
void UtenteBanco::DoEvents() {
  QCoreApplication::processEvents();
}
void UtenteBanco::DoEventsAlRecord() {
  if (ritmo_.tocca()) DoEvents();
}

void UtenteBanco::Termina() {
  std::fprintf(stderr, "the work ended the program\n");
  std::exit(2);
}

Banco::Banco(int slot)
    : libreria(QStringLiteral(GESTIONALE_APP)),
      contesto{utente, area, libreria, reteDiSistema(), schermate, QStringLiteral(GESTIONALE_APP)},
      prima_(QDir::currentPath()) {
  QDir::setCurrent(cartella_.path());
  fs::copy_file(fs::path(GESTIONALE_APP) / "QzDB.bck", file("fresco.mdb"));
  if (slot > 5000) {
    base::Sqlite sqlite(file("fresco.mdb"));
    sqlite.esegui(("WITH RECURSIVE n(i) AS (SELECT 5001 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                   std::to_string(slot) +
                   ") INSERT INTO TAB_ARTICOLI SELECT i, i, '', '', '', 0, 1, '', 0, 0 FROM n")
                      .c_str());
  }
  rinnova();
}

Banco::~Banco() {
  chiudi();
  QDir::setCurrent(prima_);
}

void Banco::rinnova() {
  chiudi();
  fs::copy_file(file("fresco.mdb"), archivio(), fs::copy_options::overwrite_existing);
}

void Banco::riapri() {
  area.NuovoComando();
  articles::ApriDatabase(QString::fromStdString(archivio().string()), contesto);
}

void Banco::chiudi() {
  articles::ChiudiDatabase();
}

fs::path Banco::archivio() const {
  return file("archivio.mdb");
}

fs::path Banco::file(const std::string& nome) const {
  return fs::path(cartella_.path().toStdString()) / nome;
}

double secondi(const std::function<void()>& lavoro) {
  const auto inizio = std::chrono::steady_clock::now();
  lavoro();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
}
