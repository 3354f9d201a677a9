#include "montaggio.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <clocale>

#include "articles/Form_ArchivioArticoli.h"
#include "articles/Form_Help_CodiceEAN.h"
#include "articles/Form_TrasferimentoArticoli.h"
#include "controls/stile.h"
#include "core/menu.h"
#include "core/stato.h"
#include "platform/net/rete.h"
#include "platform/ui/doppio_clic.h"
#include "sales/Form_ArchivioVenduto.h"
#include "sales/Form_RicezioneVenduto.h"
#include "workspace/Form_GestioneMMC.h"

namespace {

/// The texts of Qt's own, such as the buttons of a file dialog; English where its translations are missing.
void parlaItaliano(QApplication& applicazione) {
  auto* testi = new QTranslator(&applicazione);
  if (testi->load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(testi);
}

}  // namespace

void preparaApplicazione(QApplication& applicazione, const QString& cartella) {
  // The application object took the desktop's locale for itself: statements are put together with points.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName(QStringLiteral("gestionale"));
  // No display name: the toolkit would append it to the title of every window and box.
  QApplication::setApplicationVersion(QStringLiteral(GESTIONALE_VERSIONE));
  stile::cartellaIcone(cartella + QStringLiteral("/icons"));
  stile::applica(applicazione);
  QApplication::setWindowIcon(stile::icona(QStringLiteral("receipt-euro")));
  parlaItaliano(applicazione);
  new FermaDoppioClic(&applicazione);
}

Montaggio::Montaggio(const QString& cartella)
    : utente_([this] { area_.Abbandona(); }), libreria_(cartella), contesto_{utente_,    area_,
                                                                             libreria_,  reteDiSistema(),
                                                                             schermate_, cartella} {
  registraSchermateCore(schermate_);
  registraArchivioArticoli(schermate_);
  registraTrasferimentoArticoli(schermate_);
  registraHelpCodiceEAN(schermate_);
  registraRicezioneVenduto(schermate_);
  registraArchivioVenduto(schermate_);
  registraGestioneMMC(schermate_);
  registraSchermateMancanti(schermate_);
}

Montaggio::~Montaggio() {
  schermate_.scaricaTutte();
  varGlobal().DB_Articoli = {};
}

QWidget& Montaggio::mostraMenu() {
  return schermate_.mostra(QStringLiteral("start"), contesto_);
}
