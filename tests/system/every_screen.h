#pragma once

#include <functional>
#include <iosfwd>
#include <vector>

#include "articles/back_room.h"
#include "sostegno/guided_screen.h"
#include "sostegno/test_till.h"

class QWidget;

/// A shop at work: an open archive with articles and sales, a till that answers, all screens known, an
/// application folder of its own for what screens leave there.
class Shop {
 public:
  Shop();

  /// Opens an archive with customers and invoices as well.
  void openCustomers();

  BackRoom room;
  TestTill till;

 private:
  void makeScreensKnown();
  void fillArticles();
};

using Use = std::function<void(QWidget&)>;

/// One screen of the program, or one state of it.
struct Screen {
  const char* name;
  /// Opens it, hands it over, and leaves it.
  std::function<void(Shop&, const Use&)> open;
  /// Starts a command by a key and looks at what became of it; nothing where there is no command.
  std::function<void(Shop&, const GuidedScreen&)> startByKey;
};

void PrintTo(const Screen& screen, std::ostream* output);

/// Every screen of the program. A new one is a line here.
const std::vector<Screen>& everyScreen();
