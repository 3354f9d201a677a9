// The reader of rich text: help files lie in a folder that anybody may write to. What it reads has to stand
// in the document within its bounds, and what it refuses has to have a number and a description.

#include <QByteArray>
#include <QGuiApplication>
#include <QTextDocument>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "controls/rtf.h"
#include "platform/errore.h"

namespace {

/// A document's fonts need an application, and that needs no screen.
QGuiApplication& applicazione() {
  static int quanti = 1;
  static char nome[] = "rtf_fuzz";
  static char* argomenti[] = {nome, nullptr};
  static QGuiApplication unica(quanti, argomenti);
  return unica;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*quanti*/, char*** /*argomenti*/) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  applicazione();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
  const QByteArray byte(static_cast<const char*>(static_cast<const void*>(dati)),
                        static_cast<qsizetype>(quanti));
  QTextDocument documento;
  try {
    rtf::leggi(byte, documento);
  } catch (const Errore& errore) {
    if (errore.numero != errore::kFormatoFile || errore.descrizione.isEmpty() || !documento.isEmpty())
      std::abort();
    return 0;
  }
  // No step of a file stands for more than one character, a number and a tab of a list aside.
  if (documento.characterCount() > 4 * static_cast<int>(quanti)) std::abort();
  return 0;
}
