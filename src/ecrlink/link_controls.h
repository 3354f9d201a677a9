#pragma once

#include <QString>
#include <QWidget>

/// The controls of a link screen, reached by object name. A screen without the control throws Errore 438.
namespace ecrlink::controlli {

inline constexpr const char* kIndirizzo = "vkTextBoxIP_ECR";
inline constexpr const char* kIndirizziLocali = "vkTextBoxLocal_IP";
inline constexpr const char* kConnetti = "CmdInviaModECR";
inline constexpr const char* kAvvia = "Cmd_Avvia";
inline constexpr const char* kEsci = "Cmd_Esci";
inline constexpr const char* kModello = "TextModello";
inline constexpr const char* kTipoMacchina = "vkTextBoxTipoMacchina";
inline constexpr const char* kBitmap = "TextBitmap";
inline constexpr const char* kMMC = "TextMMC";
inline constexpr const char* kVersione = "vkTextBox_VSW";
inline constexpr const char* kStato = "vkTextBoxECR";
/// Properties of `vkTextBoxECR`: the state's letter, and the badge that the style sheet colours.
inline constexpr const char* kProprietaStato = "tillState";
inline constexpr const char* kProprietaDistintivo = "badge";

QWidget& trova(QWidget& schermo, const char* nome);
QString testo(QWidget& schermo, const char* nome);
void scrivi(QWidget& schermo, const char* nome, const QString& testo);
void abilita(QWidget& schermo, const char* nome, bool abilitato);
bool abilitato(QWidget& schermo, const char* nome);
void fuoco(QWidget& schermo, const char* nome);
/// Sets a property that the style sheet asks for and has the control painted anew.
void contrassegna(QWidget& schermo, const char* nome, const char* proprieta, const QString& valore);

}  // namespace ecrlink::controlli
