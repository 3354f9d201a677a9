#include "editors/Form_OPE.h"

#include <QLineEdit>
#include <array>

#include "config/image.h"
#include "config/records.h"
#include "core/key_filters.h"
#include "editors/form_field.h"

namespace editors {

namespace {

constexpr const char* kPassword = "vkTextBox_Password_OPE";
constexpr qsizetype kCifrePassword = 6;
constexpr const char16_t* kCampioneNome = u"NNNNNNNNNN";
constexpr const char16_t* kCampionePassword = u"00000000";

config::Record operatore(std::size_t riga) {
  return config::immagineProgrammazione().record(config::kOperatore, riga);
}

constexpr std::array kDatiOperatori{
    Dato{.controllo = "vkTextBox_OPE",
         .didascalia = u"Descrizione",
         .genere = Genere::Testo,
         .campo = config::operatore::kDescrizione,
         .record = operatore,
         .campione = kCampioneNome,
         .stretto = true,
         .suggerimento = u"Fino a 10 caratteri"},
    Dato{.controllo = kPassword,
         .didascalia = u"Password",
         .genere = Genere::Testo,
         .campo = config::operatore::kPassword,
         .record = operatore,
         .tasti = Cifre,
         .campione = kCampionePassword,
         .stretto = true,
         .suggerimento = u"6 cifre"},
    Dato{.controllo = "vkOptionButtonAbil_OPE",
         .didascalia = u"Abilitazione",
         .genere = Genere::SiNo,
         .campo = config::operatore::kAbilitazione,
         .record = operatore},
};
constexpr std::array kNomiOperatori{u"OPERATORE %1"};
QString nessuno() {
  return QStringLiteral("NESSUNO");
}
/// The till works without an operator too: the row is there to be seen.
constexpr std::array kNessuno{
    Dato{.controllo = "vkTextBox_OPE_NESSUNO",
         .didascalia = u"Descrizione",
         .genere = Genere::Mostrato,
         .valore = nessuno,
         .campione = kCampioneNome,
         .stretto = true},
    Dato{.controllo = "vkTextBox_Password_OPE_NESSUNO",
         .didascalia = u"Password",
         .genere = Genere::Mostrato,
         .valore = nessuno,
         .campione = kCampionePassword,
         .stretto = true},
};

constexpr std::array kRiquadri{
    Riquadro{.titolo = u"Operatori",
             .dati = kDatiOperatori,
             .righe = config::operatore::kRecord,
             .nomi = kNomiOperatori,
             .primaRiga = kNessuno,
             .nomePrimaRiga = u"OPERATORE 0"},
};
constexpr std::array kPagine{Pagina{.titolo = u"Operatori", .riquadri = kRiquadri}};

constexpr Modulo kModulo{.schermata = "Form_OPE",
                         .titolo = u"Operatori",
                         .riempimento = "RiempiFormOPE",
                         .pagine = kPagine,
                         .modificato = &VarGestionePRG::ModificaOperatori,
                         .annulla = u"Annulla modifiche"};

}  // namespace

const Modulo& ModuloOperatori() {
  return kModulo;
}

}  // namespace editors

Form_OPE::Form_OPE(Contesto& contesto) : EditorModulo(contesto, editors::ModuloOperatori()) {
  ricarica();
}

/// Every row is looked at, those too that nobody has touched: the till locks an operator out whose password
/// has another length.
bool Form_OPE::Check_Password_Change() {
  for (std::size_t riga = 0; riga < config::operatore::kRecord; ++riga) {
    auto& password = campo<editors::CampoScritto>(editors::kPassword, riga);
    if (password.casella().text().size() == editors::kCifrePassword) continue;
    avvisa(QStringLiteral("Attenzione le password devono essere di 6 caratteri !!!"));
    password.segnaSbagliato();
    porta(password);
    return false;
  }
  return true;
}
