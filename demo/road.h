#pragma once

#include <QDate>
#include <QElapsedTimer>
#include <QString>
#include <array>
#include <string>
#include <vector>

#include "demo/director.h"
#include "demo/expectations.h"
#include "demo/external_till.h"
#include "demo/manual_pictures.h"
#include "demo/play_clock.h"
#include "demo/reread_customers.h"

/// A week of a shop and a technician's visit. Monday: the till's first configuration edited and sent, new
/// archive, article list in, archive to the till. Every day receipts at the till, in the evening their sales
/// back and cleared, and the fiscal closure. Monday too: an article found, corrected and exported. Thursday:
/// customers sent, their invoices received and listed. Friday: the pictures of the receipts. Saturday: the
/// week's sales listed and exported; then the technician, who reads and tries the till from the console,
/// takes its configuration, changes it and sends it back. Every figure that it prints is compared with what
/// the till holds; a difference ends it with 1.
class Road {
 public:
  struct Places {
    /// Application folder, where the console leaves its file.
    QString application;
    /// Where archive, till memory and pictures are left.
    QString folder;
    /// Where the manual's pictures go; empty for nowhere.
    QString manual;
  };

  /// On which the shop is open.
  enum class Day { Monday, Tuesday, Wednesday, Thursday, Friday, Saturday };
  static constexpr std::array kWeek{Day::Monday,   Day::Tuesday, Day::Wednesday,
                                    Day::Thursday, Day::Friday,  Day::Saturday};
  static constexpr int kReceiptsOfADay = 300;

  Road(Places places, QDate monday, PlayClock& clock, ExternalTill& till);
  /// Of the last whole week before a day: nothing of it lies ahead.
  static QDate lastMonday(QDate today);
  int walk();

 private:
  void createArchive();
  void importList();
  void chooseFile(const QString& path);
  void connect(const QString& window, const QString& command);
  void transfer();
  /// dd/mm/yyyy.
  QString dateOf(Day day) const;
  /// Puts the PC's clock.
  void itIs(Day day, QTime time);
  /// Starts the till anew on that date.
  void tillOn(Day day, const QStringList& otherArguments = {});
  /// The file of what the till had sold before the reception of that evening.
  QString soldOn(Day day) const;
  void ringUp(Day day);
  void receive(Day day);
  void closeTill(Day day);
  void shopDay(Day day);
  void openShop();
  void closeShop();
  void compareSales(Day day);
  void compareWeek();
  void graphics();
  void comparePictures();
  void about();
  void articleArchive();
  void searchArticles();
  void correctArticle();
  void exportArticles();
  /// Of the list, corrected where one of them has been.
  std::vector<expectations::Article> articlesInArchive() const;
  void salesArchive();
  void configuration();
  void editDepartment();
  void editShop();
  void editOperator();
  void editOptions();
  /// Opens an editor of the configuration and types into it.
  void openEditor(const QString& button, const QString& field, const Director::Action& typing);
  /// Puts one of its tabs in front, types there, and photographs it.
  void tab(int which, const QString& photo, const Director::Action& typing = {});
  /// Clicks a save command; the bar tells it as done in the next step.
  void save(const QString& command, const QString& what);
  void compareConfiguration();
  void sendConfiguration();
  void chooseMachine();
  void visit();
  void receiveConfiguration();
  void changePrice();
  void sendBack();
  void customers();
  void addCustomer();
  void sendCustomers();
  void clearInvoices();
  void anEveningOfInvoices();
  void receiveInvoices();
  void completeCustomer();
  void listInvoices();
  RereadCustomers customerArchive() const;
  /// The archive of the customers is `customers_` and `issued_`.
  void compareCustomers(const QString& what);
  void auxiliary();
  void readState();
  void dumpJournal();
  void compareJournal();
  void dumpFiscalMemory();
  void pressCannedKeys();
  void keepJournal();
  void farewell();

  void photograph(const QString& window, const QString& name);
  void photographBox(const QString& name);
  void keepPicture(const QImage& picture, const QString& name);
  void awaitBox(const QString& text, const QString& photo);
  void row(const QString& what, const QString& value);
  void require(bool real, const QString& what);
  void compareSending();
  void compareSearch();
  void compareCorrection();
  void compareArticleExport();
  void compareSalesList();
  void compareSalesExport();
  /// Clicks the export of a screen, names the file and looks at the message.
  void exportList(const QString& window, const QString& file, const QString& photo);
  QString inFolder(const QString& name) const;

  Places places_;
  PlayClock& clock_;
  ExternalTill& till_;
  ManualPictures manual_;
  Director director_;
  QElapsedTimer stopwatch_;
  QString archive_;
  QString list_;
  QDate monday_;
  /// All that was received, and its rows in the export.
  std::vector<expectations::Sales> week_;
  std::vector<std::string> weekRows_;
  /// Slot of the article that was corrected, from 1.
  int corrected_ = 0;
  /// What the archive of the customers has to hold, and the invoices of the evening.
  std::vector<expectations::Customer> customers_;
  std::vector<expectations::Invoice> issued_;
  /// Code of the customer who was completed.
  int completed_ = 0;
  /// Names of the files that the console made.
  QString journal_;
  QString fiscalMemory_;
  /// The articles that the till had before the technician came.
  std::string articlesOnTill_;
  int photo_ = 0;
};
