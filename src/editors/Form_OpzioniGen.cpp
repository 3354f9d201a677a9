#include "editors/Form_OpzioniGen.h"

#include <QComboBox>
#include <QDate>
#include <QFrame>
#include <QLineEdit>

#include "config/image.h"
#include "controls/contrast.h"
#include "core/conversions.h"
#include "editors/form_field.h"
#include "editors/options_table.h"
#include "platform/ui/user_port.h"

namespace editors {

namespace {

constexpr int kPosizioneEPSON = 5;
constexpr int kPosizioneRX40T = 6;

// Colours that shops know.
const QColor kGrigioChiaro(0xE0, 0xE0, 0xE0);
const QColor kRosso(0xFF, 0, 0);
const QColor kSpento(0xFB, 0xFB, 0xFB);

constexpr int kOreMassime = 23;
constexpr int kSessantesimiMassimi = 59;
constexpr qsizetype kCifreTempo = 6;
/// What a wrong time becomes: nine in the evening, when shops are closed.
const QString kTempoPredefinito = QStringLiteral("210000");
const QString kNessuno = QStringLiteral("NESSUNO");
/// No day of the calendar has a year: it is looked at in one that is no leap year.
const QString kAnnoComune = QStringLiteral("2007");

/// A pair that is not chosen is no wrong day.
bool esiste(const CampoData& campo) {
  const QString ggmm = campo.cifre();
  return !campo.scelta() || QDate::isValid(kAnnoComune.toInt(), ggmm.mid(2).toInt(), ggmm.left(2).toInt());
}

/// Year, month, day as one number, and its text.
QString ordinabile(const CampoData& campo) {
  const QString ggmm = campo.cifre();
  return QString::number((kAnnoComune + ggmm.mid(2) + ggmm.left(2)).toInt());
}

}  // namespace

QString VerificaTempoAzz(const QString& testo) {
  // The first message speaks of a password: shops and their support know it by these words.
  if (testo.size() != kCifreTempo) return QString::fromUtf16(opzioni::kSeiCaratteri);
  if (testo.mid(0, 2).toInt() > kOreMassime)
    return QStringLiteral("L'ora immessa e' > 23. L'intervallo del tempo di azzeramento (000000-235959)");
  if (testo.mid(2, 2).toInt() > kSessantesimiMassimi)
    return QStringLiteral("L'ora immessa e' > 59. Formato tempo per l'azzermento 235959");
  if (testo.mid(4, 2).toInt() > kSessantesimiMassimi)
    return QStringLiteral("L'ora immessa e' > 59. Formato tempo per l'azzeremento 235959");
  return {};
}

}  // namespace editors

using editors::CampoData;
using editors::CampoLista;
using editors::CampoScritto;
using editors::CampoSiNo;
namespace opzioni = editors::opzioni;

Form_OpzioniGen::Form_OpzioniGen(Contesto& contesto) : EditorModulo(contesto, editors::ModuloOpzioni()) {
  // Fixed on the keyboard of the till: the text is shown, not written.
  campo<CampoScritto>("vkTextBox_Subtender").casella().setReadOnly(true);
  RiempiOpzGen();
}

void Form_OpzioniGen::ricarica() {
  RiempiOpzGen();
}

void Form_OpzioniGen::RiempiOpzGen() {
  EditorModulo::ricarica();
  ResetBackColorDate();
  for (const auto& [coppia, descrizione] : {std::pair{opzioni::kAlternativoA, opzioni::kDescrizioneA},
                                            std::pair{opzioni::kAlternativoB, opzioni::kDescrizioneB}})
    campo<CampoScritto>(descrizione).casella().setReadOnly(!campo<CampoSiNo>(coppia).si());
  abilitaTallon();
  modificato() = kFalso;
}

/// Not filled anew: the kind of zeroing would go back to its first entry, and the next save would write that.
/// The numbers are shown as they are stored.
void Form_OpzioniGen::dopoIlSalvataggio() {
  mostraNumeri();
  ResetBackColorFrame();
  // With its mark a pair gives back the ground that it was marked on.
  ResetBackColorDate();
}

bool Form_OpzioniGen::CheckTempoAzz() {
  auto& tempo = campo<CampoScritto>(opzioni::kTempo);
  const QString messaggio = editors::VerificaTempoAzz(tempo.casella().text());
  if (messaggio.isEmpty()) return true;
  // Set first: a change tells of itself at the foot, where the message has to stay.
  tempo.casella().setText(editors::kTempoPredefinito);
  avvisa(messaggio);
  porta(tempo);
  return false;
}

/// Each row's own message has been shown.
bool Form_OpzioniGen::salvabile() {
  ResetBackColorDate();
  editors::CampoModulo* primo = nullptr;
  QStringList sbagliate;
  for (std::size_t riga = 0; riga < config::logo::kRecord; ++riga) {
    const bool inizio = CheckCampoDataInizio(riga);
    const bool fine = CheckCampoDataFine(riga);
    if (inizio && fine) continue;
    if (!primo) primo = &campo(inizio ? opzioni::kFine : opzioni::kInizio, riga);
    sbagliate << QString::fromUtf16(config::logo::kVoci[riga].nome);
  }
  if (!primo) return true;
  avvisa(QStringLiteral("Attenzione controllare le date colorate in rosso: non sono corrette !!!"));
  porta(*primo);
  racconta(QStringLiteral("Non salvato: correggere le date di ") + sbagliate.join(QStringLiteral(", ")));
  return false;
}

void Form_OpzioniGen::arrossa(CampoData& campo) {
  campo.sfondo(editors::kRosso);
  segna(campo);
}

bool Form_OpzioniGen::giornoGiusto(CampoData& campo) {
  if (!campo.scelta() || CheckDataPeriodo(campo.cifre(), contesto().utente) != kFalso) return true;
  arrossa(campo);
  return false;
}

/// A row of which a day is missing has no order to be tested.
bool Form_OpzioniGen::inOrdine(std::size_t riga, CampoData& daSegnare) {
  const auto& inizio = campo<CampoData>(opzioni::kInizio, riga);
  const auto& fine = campo<CampoData>(opzioni::kFine, riga);
  if (!inizio.scelta() || !fine.scelta() || editors::ordinabile(inizio) <= editors::ordinabile(fine))
    return true;
  const QString messaggio = QStringLiteral("Attenzione la Data di Inizio maggiore della Data di Fine !!!");
  contesto().utente.MsgBox(messaggio, Icon::Warning);
  arrossa(daSegnare);
  // Behind the mark, which tells of itself at the foot.
  racconta(messaggio);
  return false;
}

bool Form_OpzioniGen::CheckCampoDataInizio(std::size_t riga) {
  auto& inizio = campo<CampoData>(opzioni::kInizio, riga);
  return giornoGiusto(inizio) && inOrdine(riga, inizio);
}

bool Form_OpzioniGen::CheckCampoDataFine(std::size_t riga) {
  auto& fine = campo<CampoData>(opzioni::kFine, riga);
  return giornoGiusto(fine) && inOrdine(riga, fine);
}

void Form_OpzioniGen::ResetBackColorDate() {
  for (std::size_t riga = 0; riga < config::logo::kRecord; ++riga)
    for (const char* const lista : {opzioni::kInizio, opzioni::kFine})
      campo<CampoData>(lista, riga).sfondo(editors::kGrigioChiaro);
}

void Form_OpzioniGen::dopo(editors::CampoModulo& campo) {
  const auto e = [&](const char* controllo) {
    return QLatin1String(campo.dato().controllo) == QLatin1String(controllo);
  };
  if (e(opzioni::kCOM1) || e(opzioni::kCOM2)) return apparatoScelto();
  if (e(opzioni::kAlternativoA)) return testoAlternativo(opzioni::kAlternativoA, opzioni::kDescrizioneA);
  if (e(opzioni::kAlternativoB)) return testoAlternativo(opzioni::kAlternativoB, opzioni::kDescrizioneB);
  if (e(opzioni::kTallon)) return abilitaTallon();
  if (e(opzioni::kRevisione)) return revisioneScelta();
  if (e(opzioni::kInizio) || e(opzioni::kFine)) rigaScelta(campo.riga(), e(opzioni::kInizio));
}

/// The printer of the tables hangs on one of these: which, has to be said again.
void Form_OpzioniGen::apparatoScelto() {
  if (campo<CampoLista>(opzioni::kCOM1).lista().currentIndex() == editors::kPosizioneEPSON ||
      campo<CampoLista>(opzioni::kCOM2).lista().currentIndex() == editors::kPosizioneRX40T)
    campo<CampoLista>(opzioni::kTavoli).lista().setCurrentIndex(0);
}

void Form_OpzioniGen::testoAlternativo(const char* coppia, const char* descrizione) {
  QLineEdit& casella = campo<CampoScritto>(descrizione).casella();
  const bool suo = campo<CampoSiNo>(coppia).si();
  casella.setReadOnly(!suo);
  if (!suo) casella.setText(editors::kNessuno);
}

void Form_OpzioniGen::abilitaTallon() {
  auto* cornice = findChild<QFrame*>(QLatin1String(opzioni::kCorniceTallon));
  const bool attivo = campo<CampoSiNo>(opzioni::kTallon).si();
  cornice->setEnabled(attivo);
  const QColor spento = contrast::ground(editors::kSpento, palette().color(QPalette::Base),
                                         palette().color(QPalette::Active, QPalette::Text));
  cornice->setStyleSheet(attivo ? QString()
                                : QStringLiteral("#%1 { background: %2; }")
                                      .arg(QLatin1String(opzioni::kCorniceTallon), spento.name()));
}

/// Its lists come back here one by one: with the day at the first, which every month has.
void Form_OpzioniGen::revisioneScelta() {
  auto& revisione = campo<CampoData>(opzioni::kRevisione);
  if (revisione.scelta() && CheckDataRevisione(revisione.cifre(), contesto().utente) == kFalso)
    revisione.allInizio();
}

/// What a pair put right may also have put right is the order with the other one of its row, not its day.
void Form_OpzioniGen::rigaScelta(std::size_t riga, bool inizio) {
  auto& altra = campo<CampoData>(inizio ? opzioni::kFine : opzioni::kInizio, riga);
  campo<CampoData>(inizio ? opzioni::kInizio : opzioni::kFine, riga).sfondo(editors::kGrigioChiaro);
  if (editors::esiste(altra)) altra.sfondo(editors::kGrigioChiaro);
  if (inizio)
    CheckCampoDataInizio(riga);
  else
    CheckCampoDataFine(riga);
}
