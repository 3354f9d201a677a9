#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

struct Contesto;
namespace Ui {
class Form_ATTESA_MF_DGFE;
}

/// The wait box of an exchange with the till whose length nobody knows: it tells what the till has to be set
/// to, and closing it is the way out of one that does not begin.
class Form_ATTESA_MF_DGFE : public QWidget {
  Q_OBJECT

 public:
  explicit Form_ATTESA_MF_DGFE(Contesto& contesto);
  ~Form_ATTESA_MF_DGFE() override;

  /// What its closing by the person leads to: run by a later event pass, once the box is gone, and not at all
  /// if `destinatario` has gone before.
  void quandoLaPersonaLaChiude(QObject& destinatario, std::function<void()> seguito);
  /// From now on its closing is the program's.
  void chiudeIlProgramma() { seguito_ = nullptr; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::unique_ptr<Ui::Form_ATTESA_MF_DGFE> ui_;
  QPointer<QObject> destinatario_;
  std::function<void()> seguito_;
};

namespace auxcmd {

/// Shows the wait box non-modally over `sopra`, which also decides on whether `seguito` is still wanted. A
/// busy guard would keep the person from closing it.
void MostraAttesa(Contesto& contesto, QWidget& sopra, std::function<void()> seguito);
/// Takes the wait box away, if there is one, without what the person's closing leads to.
void ChiudiAttesa(Contesto& contesto);

}  // namespace auxcmd
