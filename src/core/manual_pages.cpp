#include "core/manual_pages.h"

#include <QWidget>
#include <algorithm>

namespace manual {

namespace {

constexpr Place kPlaces[] = {
    {"start", "primi-passi.md", "messaggi.md#avvio-e-menu"},
    {"frmAbout", "primi-passi.md#informazioni-sul-programma", "messaggi.md#avvio-e-menu"},
    {"Form_ATTESA", "primi-passi.md#importare-gli-articoli", "messaggi.md"},
    {"Form_GestioneMMC", "primi-passi.md#un-archivio-nuovo", "messaggi.md#larchivio"},
    {"Form_ArchivioArticoli", "archivi.md#archivio-articoli", "messaggi.md#archivio-articoli"},
    {"Form_Help_CodiceEAN", "archivi.md#archivio-articoli", "messaggi.md#archivio-articoli"},
    {"Form_ArchivioVenduto", "archivi.md#analisi-del-venduto", "messaggi.md#analisi-del-venduto"},
    {"Form_TrasferimentoArticoli", "cassa.md#trasferire-gli-articoli", "messaggi.md#trasferimento-articoli"},
    {"Form_RicezioneVenduto", "cassa.md#ricevere-il-venduto", "messaggi.md#ricezione-del-venduto"},
    {"Form_Grafica", "grafica.md", "grafica.md#messaggi-della-grafica"},
    {"MDIForm_PRG", "configurazione.md", "configurazione.md#messaggi-della-configurazione"},
    {"Form_Reparti", "editor-griglie.md", "editor-griglie.md"},
    {"Form_PLU", "editor-griglie.md", "editor-griglie.md"},
    {"Form_IVA", "editor-griglie.md", "editor-griglie.md"},
    {"Form_Valuta", "editor-griglie.md", "editor-griglie.md"},
    {"Form_Negozio", "configurazione-negozio.md", "configurazione-negozio.md#messaggi-del-negozio"},
    {"Form_OPE", "configurazione-operatori.md", "configurazione-operatori.md#messaggi-degli-operatori"},
    {"Form_OpzioniGen", "configurazione-opzioni.md", "configurazione-opzioni.md#messaggi-delle-opzioni"},
    {"Form_GestioneCodiceTastiera", "configurazione-tastiera.md",
     "configurazione-tastiera.md#messaggi-della-tastiera"},
    {"frmTastiOpzione", "configurazione-tastiera.md#scegliere-che-cosa-fa-un-tasto",
     "configurazione-tastiera.md#messaggi-della-tastiera"},
    {"Form_TrasferimentoProgrammazione", "configurazione-cassa.md", "configurazione-cassa.md"},
    {"Form_GestioneClienti", "clienti.md#area-di-lavoro", "clienti.md#messaggi-dei-clienti"},
    {"Form_AnagraficaClienti", "clienti.md#anagrafe", "clienti.md#messaggi-dei-clienti"},
    {"Form_ArchivioFattureClienti", "clienti.md#fatture", "clienti.md#messaggi-dei-clienti"},
    {"Form_TrasferimentoClienti", "clienti.md#trasferimento", "clienti.md#messaggi-dei-clienti"},
    {"Form_RicezioneClienti", "clienti.md#ricezione", "clienti.md#messaggi-dei-clienti"},
    {"Form_Comandi_XONXOFF", "comandi-ausiliari.md", "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"Form_STATO_ECR", "comandi-ausiliari.md#leggere-lo-stato",
     "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"Form_ATTESA_MF_DGFE", "comandi-ausiliari.md#leggere-il-giornale-e-la-memoria-fiscale",
     "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"Form_Dump_MF_DGFE", "comandi-ausiliari.md#vedere-un-file-letto",
     "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"Form_Help_CodiciErrori", "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari",
     "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"Form_Test", "comandi-ausiliari.md#provare-le-sequenze",
     "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"Form_TestVendita", "comandi-ausiliari.md#provare-le-sequenze",
     "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"Form_TestModificatori", "comandi-ausiliari.md#provare-le-sequenze",
     "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"Form_TestPagamento", "comandi-ausiliari.md#provare-le-sequenze",
     "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"Form_TestUtilità", "comandi-ausiliari.md#provare-le-sequenze",
     "comandi-ausiliari.md#messaggi-dei-comandi-ausiliari"},
    {"FinestraApri", "primi-passi.md#scegliere-un-file", "messaggi.md"},
    {"FinestraSalva", "primi-passi.md#scegliere-un-file", "messaggi.md"},
    {"MsgBox", "messaggi.md", "messaggi.md"},
    {"Manuale", kContents, "messaggi.md"},
};

const Place* find(const QString& window) {
  const auto* const found = std::find_if(std::begin(kPlaces), std::end(kPlaces), [&](const Place& place) {
    return window == QString::fromUtf8(place.window);
  });
  return found == std::end(kPlaces) ? nullptr : found;
}

const QWidget* below(const QWidget& window) {
  const QWidget* const parent = window.parentWidget();
  return parent == nullptr ? nullptr : parent->window();
}

}  // namespace

std::span<const Place> places() {
  return kPlaces;
}

QString placeOf(const QWidget* from) {
  const QWidget* window = from == nullptr ? nullptr : from->window();
  for (const QWidget* part = from; part != window; part = part->parentWidget())
    if (const Place* const place = find(part->objectName())) return QLatin1String(place->page);
  const bool box = window != nullptr && window->objectName() == QLatin1String("MsgBox");
  const Place* own = nullptr;
  for (; window != nullptr; window = below(*window)) {
    const Place* const place = find(window->objectName());
    if (place == nullptr) continue;
    own = place;
    if (!box || window->objectName() != QLatin1String("MsgBox")) break;
  }
  if (own == nullptr) return QLatin1String(kContents);
  return QLatin1String(box ? own->messages : own->page);
}

}  // namespace manual
