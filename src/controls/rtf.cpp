#include "controls/rtf.h"

#include "controls/rtf_documento.h"
#include "controls/rtf_lettore.h"

namespace rtf {

void leggi(const QByteArray& byte, QTextDocument& documento) {
  scrivi(Lettore(byte).leggi(), documento);
}

}  // namespace rtf
