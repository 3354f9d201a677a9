// The reader of rich text: help files lie in a folder that anybody may write to. What it reads has to stand
// in the document within its bounds, and what it refuses has to have a number and a description.

#include <QByteArray>
#include <QGuiApplication>
#include <QTextDocument>

#include "check.h"
#include "controls/rtf.h"
#include "platform/error.h"

namespace {

/// A document's fonts need an application, and that needs no screen.
QGuiApplication& application() {
  static int count = 1;
  static char name[] = "rtf_fuzz";
  static char* arguments[] = {name, nullptr};
  static QGuiApplication only(count, arguments);
  return only;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  application();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
  const QByteArray byte(static_cast<const char*>(static_cast<const void*>(data)),
                        static_cast<qsizetype>(count));
  QTextDocument document;
  try {
    rtf::read(byte, document);
  } catch (const Errore& error) {
    check(error.numero == errors::kFileFormat && !error.descrizione.isEmpty() && document.isEmpty());
    return 0;
  }
  // No step of a file stands for more than one character, a number and a tab of a list aside.
  check(document.characterCount() <= 4 * static_cast<int>(count));
  return 0;
}
