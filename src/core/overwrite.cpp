#include "core/overwrite.h"

#include "core/conversions.h"
#include "platform/ui/user_port.h"

bool ConfermaSovrascrittura(const QString& percorso, Utente& utente) {
  return !FileEsiste(percorso) ||
         utente.MsgBox(QStringLiteral("FILE GIA' ESISTENTE! VUOI SOVRASCIVERLO?"), Icon::None,
                       QStringLiteral("ATTENZIONE"), Buttons::YesNo, Preset::Last) == Answer::Yes;
}
