#pragma once

#include <QElapsedTimer>
#include <QString>
#include <vector>

#include "demo/director.h"
#include "demo/external_till.h"
#include "demo/reread_customers.h"

/// The main road: new archive, article list in, archive to the till, a day at the till, its sales back and
/// cleared, then both archives looked at, corrected and exported; a configuration edited and sent; customers
/// sent, their invoices received and listed; the till read and tried from the console. Every figure that it
/// prints is compared with what the till holds; a difference ends it with 1.
class Road {
 public:
  struct Places {
    /// Application folder, where the console leaves its file.
    QString application;
    /// Where archive, till memory and pictures are left.
    QString folder;
  };

  Road(Places places, ExternalTill& till);
  int walk();

 private:
  void createArchive();
  void importList();
  void chooseFile(const QString& path);
  void connect(const QString& window, const QString& command);
  void transfer();
  void ringUp();
  void receive();
  void articleArchive();
  void searchArticles();
  void correctArticle();
  void exportArticles();
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
  void pressCannedKeys();
  void keepJournal();
  void farewell();
  void backToWork();

  void photograph(const QString& window, const QString& name);
  void photographBox(const QString& name);
  void awaitBox(const QString& text, const QString& photo);
  void row(const QString& what, const QString& value);
  void require(bool real, const QString& what);
  void compareSending();
  void compareSales();
  void compareSearch();
  void compareCorrection();
  void compareArticleExport();
  void compareSalesList();
  void compareSalesExport();
  /// Clicks the export of a screen, names the file and looks at the message.
  void exportList(const QString& window, const QString& file, const QString& photo);
  QString inFolder(const QString& name) const;

  Places places_;
  ExternalTill& till_;
  Director director_;
  QElapsedTimer stopwatch_;
  QString archive_;
  QString list_;
  QString receivedDay_;
  /// Slot of the article that was corrected, from 1.
  int corrected_ = 0;
  /// What the archive of the customers has to hold, and the invoices of the evening.
  std::vector<expectations::Customer> customers_;
  std::vector<expectations::Invoice> issued_;
  /// Code of the customer who was completed.
  int completed_ = 0;
  /// Name of the file that the console made.
  QString journal_;
  int photo_ = 0;
};
