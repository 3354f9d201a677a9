#include "controls/rtf.h"

#include "controls/rtf_document.h"
#include "controls/rtf_reader.h"

namespace rtf {

void read(const QByteArray& byte, QTextDocument& document) {
  write(Reader(byte).read(), document);
}

}  // namespace rtf
