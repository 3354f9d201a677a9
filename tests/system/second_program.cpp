// One of the programs of a race: opens an archive, works in a folder, and for each line that it reads
// receives the sales of a till and tells how it went. Its arguments: folder, archive, the till's address.
#include <QApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <clocale>
#include <iostream>
#include <string>

#include "articles/article_database.h"
#include "ecrlink/session.h"
#include "sales/hidden_progress.h"
#include "sales/reception.h"
#include "sostegno/program_fixture.h"

namespace {

/// "Connetti" ends what an earlier reception left open on the till; then "Avvia".
sales::EsitoVenduto receive(Contesto& contesto) {
  QString file;
  QString reply;
  ecrlink::ComandoECR(file, ecrlink::Modo::ChiudiTrasferimento, reply, contesto);
  HiddenProgress bar;
  return sales::RiceviVenduto(contesto, bar.progress).esito;
}

/// One line: whether all went well, then the boxes.
void tell(sales::EsitoVenduto outcome, const std::vector<Box>& boxes) {
  QJsonArray line{outcome == sales::EsitoVenduto::Fatto};
  for (const Box& one : boxes) line.append(one.text);
  std::cout << QJsonDocument(line).toJson(QJsonDocument::Compact).constData() << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 4) return 2;
  ProgramFixture program;
  QDir::setCurrent(arguments.at(1));
  articles::ApriDatabase(arguments.at(2), program.contesto);
  commonForKora().IP_ECR = arguments.at(3);
  std::cout << "pronto" << std::endl;
  for (std::string line; std::getline(std::cin, line);) {
    const sales::EsitoVenduto outcome = receive(program.contesto);
    tell(outcome, program.takeBoxes());
  }
  articles::ChiudiDatabase();
  return 0;
}
