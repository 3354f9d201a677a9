// Makes the template of new configurations of a readable source: make_configuration <source> <target>. The
// target is replaced whole or not at all.

#include <iostream>

#include "configuration_source.h"
#include "platform/error.h"
#include "platform/text/whole_file.h"
#include "source_refused.h"

namespace {

constexpr qsizetype kMostSource = 1000000;

int make(const QString& source, const QString& target) {
  try {
    WriteWholeFile(target, ConfigurationOf(QString::fromUtf8(ReadWholeFile(source, kMostSource))));
    return 0;
  } catch (const SourceRefused& refused) {
    std::cerr << source.toStdString() << ':' << refused.line << ": " << refused.reason.toStdString() << '\n';
  } catch (const Errore& error) {
    std::cerr << error.descrizione.toStdString() << '\n';
  }
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "make_configuration <source> <target>\n";
    return 2;
  }
  return make(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
}
