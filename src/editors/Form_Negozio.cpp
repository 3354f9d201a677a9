#include "editors/Form_Negozio.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <array>

#include "config/configuration_file.h"
#include "config/general_options.h"
#include "config/image.h"
#include "config/records.h"
#include "core/key_filters.h"
#include "core/state.h"
#include "editors/chosen_model.h"
#include "editors/form_field.h"

namespace editors {

namespace {

constexpr const char* kIntestazione = "vkTextBox_INT";
constexpr const char* kCortesia = "vkTextBox_COR";
constexpr const char* kRiquadroLarghezza = "RiquadroLarghezza";
constexpr const char* kCartaIntestazione = "vkTextBoxStampanteFiscale_1";
constexpr int kCaratteri24 = 24;
constexpr int kCaratteri26 = 26;
constexpr int kCaratteri36 = 36;
constexpr std::size_t kCifreSMS = 16;

config::Record negozio(std::size_t) {
  return config::bloccoNegozio();
}
config::Record parametri(std::size_t) {
  return config::immagineProgrammazione().record(config::kParametri, 0);
}
config::Record intestazione(std::size_t riga) {
  return config::immagineProgrammazione().record(config::kIntestazione, riga);
}
config::Record cortesia(std::size_t riga) {
  return config::immagineProgrammazione().record(config::kCortesia, riga);
}

constexpr Dato testo(const char* controllo, const char16_t* didascalia, const config::Campo& campo,
                     KeyRule tasti = {}) {
  return {.controllo = controllo,
          .didascalia = didascalia,
          .genere = Genere::Testo,
          .campo = campo,
          .record = negozio,
          .tasti = tasti};
}

constexpr std::array kDatiEsercente{
    testo("vkTextBox_rag_sociale", u"Ragione Sociale", config::negozio::kRagioneSociale),
    testo("vkTextBox_pIva", u"Partita IVA", config::negozio::kPartitaIVA),
};
constexpr std::array kDatiSede{
    testo("vkTextBox_indirizzo", u"Indirizzo", config::negozio::kIndirizzo),
    testo("vkTextBox_citta", u"Città", config::negozio::kCitta),
    testo("vkTextBox_cap", u"CAP", config::negozio::kCAP),
    testo("vkTextBox_provincia", u"Provincia", config::negozio::kProvincia),
};
constexpr std::array kDatiRecapiti{
    testo("vkTextBox_telefono", u"Telefono", config::negozio::kTelefono, Cifre),
    testo("vkTextBox_fax", u"Fax", config::negozio::kFax, Cifre),
    testo("vkTextBox_email", u"Email", config::negozio::kEmail),
    // The till has no place for it: the number is asked for and dropped, as shops know it.
    Dato{.controllo = "vkTextBox_num_sms",
         .didascalia = u"N.ro tel. SMS",
         .genere = Genere::Perso,
         .campo = {"numero SMS", 0, kCifreSMS + 1, config::Tipo::CampoTesto, kCifreSMS},
         .tasti = Cifre,
         .suggerimento = u"Non viene conservato: la cassa non ha dove tenerlo"},
};

/// One width at a time: that of the paper of the machine that was picked, else the widest.
QString larghezzaCarta() {
  const int righe = varGestionePRG().LarghezzaRiga;
  return QString::number(righe == kCaratteri24 || righe == kCaratteri26 ? righe : kCaratteri36);
}
QString modello() {
  return QStringLiteral("Kora");
}
constexpr Dato mostrato(const char* controllo, const char16_t* didascalia, QString (*valore)()) {
  return {.controllo = controllo,
          .didascalia = didascalia,
          .genere = Genere::Mostrato,
          .valore = valore,
          .campione = u"000000",
          .stretto = true};
}
constexpr Dato larghezza(const char* controllo) {
  return mostrato(controllo, u"Larghezza Carta", larghezzaCarta);
}

constexpr std::array kDatiCassa{
    Dato{.controllo = "vkTextBox_num_cassa",
         .didascalia = u"N.ro Cassa",
         .genere = Genere::Numero,
         .campo = config::parametri::kNumeroCassa,
         .record = parametri,
         .tasti = Cifre,
         .campione = u"00000",
         .suggerimento = u"Da 0 a 255: di un numero più grande resta quello che sta in un byte"},
    mostrato("vkTextBoxModello", u"Modello", modello),
    mostrato("vkTextBoxNumTasti", u"Num. Tasti", numeroTasti),
    larghezza("vkTextBoxStampanteFiscale_0"),
};
constexpr std::array kLarghezzaIntestazione{larghezza(kCartaIntestazione)};
constexpr std::array kLarghezzaCortesia{larghezza("vkTextBoxStampanteFiscale_2")};

constexpr std::array kDatiIntestazione{
    Dato{.controllo = kIntestazione,
         .didascalia = u"Testo",
         .genere = Genere::Testo,
         .campo = config::intestazione::kTesto,
         .record = intestazione,
         .rifilato = true},
    Dato{.controllo = "vkOptionButtonINT",
         .didascalia = u"Doppia Altezza",
         .genere = Genere::SiNo,
         .campo = config::intestazione::kDoppiaAltezza,
         .record = intestazione},
};
constexpr std::array kDatiCortesia{
    Dato{.controllo = kCortesia,
         .didascalia = u"Testo",
         .genere = Genere::Testo,
         .campo = config::cortesia::kTesto,
         .record = cortesia},
    Dato{.controllo = "vkOptionButtonCOR",
         .didascalia = u"Doppia Altezza",
         .genere = Genere::SiNo,
         .campo = config::cortesia::kDoppiaAltezza,
         .record = cortesia},
    Dato{.controllo = "vkOptionButtonAbilCOR",
         .didascalia = u"Abilitazione",
         .genere = Genere::SiNo,
         .campo = config::cortesia::kAbilitazione,
         .record = cortesia},
};
constexpr std::array kNomiRighe{u"RIGA %1"};

constexpr std::array kRiquadriNegozio{
    Riquadro{.titolo = u"Esercente", .dati = kDatiEsercente},
    Riquadro{.titolo = u"Sede", .dati = kDatiSede, .affiancati = 2},
    Riquadro{.titolo = u"Recapiti", .dati = kDatiRecapiti, .affiancati = 2, .secondaColonna = true},
    Riquadro{.titolo = u"Cassa", .dati = kDatiCassa, .affiancati = 2, .secondaColonna = true},
};
constexpr std::array kRiquadriIntestazione{
    Riquadro{.titolo = u"Larghezza riga", .dati = kLarghezzaIntestazione, .nome = kRiquadroLarghezza},
    Riquadro{.titolo = u"Righe in testa allo scontrino",
             .dati = kDatiIntestazione,
             .righe = config::intestazione::kRecord,
             .nomi = kNomiRighe},
};
constexpr std::array kRiquadriCortesia{
    Riquadro{.titolo = u"Carta", .dati = kLarghezzaCortesia},
    Riquadro{.titolo = u"Righe in fondo allo scontrino",
             .dati = kDatiCortesia,
             .righe = config::cortesia::kRecord,
             .nomi = kNomiRighe},
};

constexpr std::array kPagine{
    Pagina{.titolo = u"Configurazione Negozio", .riquadri = kRiquadriNegozio},
    Pagina{.titolo = u"Intestazione",
           .riquadri = kRiquadriIntestazione,
           .riempimento = "RiempiINT",
           .salva = nullptr},
    Pagina{
        .titolo = u"Cortesia", .riquadri = kRiquadriCortesia, .riempimento = "RiempiCOR", .salva = nullptr},
};

constexpr Modulo kModulo{.schermata = "Form_Negozio",
                         .titolo = u"Configurazione Negozio",
                         .riempimento = "RiempiDatiNegozio",
                         .pagine = kPagine,
                         .modificato = &VarGestionePRG::ModificaNegozio};

}  // namespace

const Modulo& ModuloNegozio() {
  return kModulo;
}

}  // namespace editors

Form_Negozio::Form_Negozio(Contesto& contesto) : EditorModulo(contesto, editors::ModuloNegozio()) {
  creaLarghezze();
  ricarica();
}

/// Two widths to choose from by hand; that of a paper of 26 characters comes with its machine alone.
void Form_Negozio::creaLarghezze() {
  QWidget& carta = this->carta(editors::kRiquadroLarghezza);
  auto* fianco = new QHBoxLayout;
  auto* scelta = new QButtonGroup(this);
  int posizione = 0;
  const int usata = varGestionePRG().LarghezzaRiga;
  QWidget* prima = &campo(editors::kCartaIntestazione).controllo();
  for (const int caratteri : {editors::kCaratteri36, editors::kCaratteri24}) {
    auto* voce = new QRadioButton(QStringLiteral("%1 caratteri").arg(caratteri), &carta);
    voce->setObjectName(QStringLiteral("vkOptionButtonLarCar_%1").arg(posizione));
    voce->setToolTip(
        QStringLiteral("Quanto possono essere lunghe le righe di intestazione e cortesia che si scrivono"));
    scelta->addButton(voce);
    fianco->addWidget(voce);
    // The Tab key comes to them before the lines that they are for.
    setTabOrder(prima, voce);
    prima = voce;
    ++posizione;
    voce->setChecked(caratteri == usata ||
                     (caratteri == editors::kCaratteri36 && usata != editors::kCaratteri26));
    connect(voce, &QRadioButton::clicked, this, [this, caratteri] { limita(caratteri); });
  }
  fianco->addStretch(1);
  // Beside the width of the paper.
  auto* griglia = carta.findChild<QGridLayout*>();
  griglia->addLayout(fianco, 0, 1);
  griglia->setColumnStretch(0, 0);
  griglia->setColumnStretch(1, 1);
  if (usata == editors::kCaratteri24 || usata == editors::kCaratteri26) limita(usata);
}

void Form_Negozio::limita(int caratteri) {
  for (std::size_t riga = 0; riga < config::intestazione::kRecord; ++riga)
    campo<editors::CampoScritto>(editors::kIntestazione, riga).limita(caratteri);
  for (std::size_t riga = 0; riga < config::cortesia::kRecord; ++riga)
    campo<editors::CampoScritto>(editors::kCortesia, riga).limita(caratteri);
}
