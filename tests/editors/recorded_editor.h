#pragma once

#include <QStringList>
#include <QWidget>

#include "editors/changes.h"
#include "sostegno/program_fixture.h"

/// A screen in an editor's place that keeps what the workspace asks of it, in one list for all.
class RecordedEditor : public QWidget, public editors::Editor {
 public:
  RecordedEditor(const QString& name, QStringList& calls) : calls_(calls) { setObjectName(name); }
  void salvaInMemoria() override { calls_ += QStringLiteral("salva ") + objectName(); }
  void ricarica() override { calls_ += QStringLiteral("ricarica ") + objectName(); }

 private:
  QStringList& calls_;
};

/// Every editor of the workspace by its screen's name.
inline const QStringList kEditorScreens{QStringLiteral("Form_Negozio"),   QStringLiteral("Form_Reparti"),
                                        QStringLiteral("Form_PLU"),       QStringLiteral("Form_IVA"),
                                        QStringLiteral("Form_OPE"),       QStringLiteral("Form_Valuta"),
                                        QStringLiteral("Form_OpzioniGen")};

inline void registerRecordedEditors(ProgramFixture& program, QStringList& calls) {
  for (const QString& name : kEditorScreens)
    program.screens.registra(name, [name, &calls](Contesto&) { return new RecordedEditor(name, calls); });
}
