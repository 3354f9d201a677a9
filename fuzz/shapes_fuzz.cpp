// Statements one behind the other, a line each: what the remembered shapes make of one must be what the
// translation word by word makes of it, whatever came before.

#include <QString>
#include <algorithm>
#include <string>
#include <vector>

#include "check.h"
#include "platform/error.h"
#include "platform/store/statement_shapes.h"

namespace {

struct Outcome {
  std::string sql;
  bool definition = false;
  std::vector<store::Parameter> parameters;
  int error = 0;
  QString description;
};

bool same(const store::Parameter& left, const store::Parameter& right) {
  if (left.kind != right.kind) return false;
  switch (left.kind) {
    case store::Parameter::Kind::Integer:
      return left.integer == right.integer;
    case store::Parameter::Kind::Real:
      return left.real == right.real;
    case store::Parameter::Kind::Text:
      return left.text == right.text;
  }
  return false;
}

bool same(const Outcome& left, const Outcome& right) {
  if (left.error != right.error || left.description != right.description) return false;
  if (left.sql != right.sql || left.definition != right.definition) return false;
  if (left.parameters.size() != right.parameters.size()) return false;
  for (std::size_t i = 0; i < left.parameters.size(); ++i)
    if (!same(left.parameters[i], right.parameters[i])) return false;
  return true;
}

template <typename Way>
Outcome outcome(Way&& way) {
  try {
    const store::Translation& translation = way();
    return {translation.sql, translation.definition, translation.parameters, 0, {}};
  } catch (const Errore& error) {
    check(error.numero != 0 && !error.descrizione.isEmpty());
    return {{}, false, {}, error.numero, error.descrizione};
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
  static const store::Dictionary dictionary = [] {
    store::Dictionary fresh;
    fresh.add("Codice_EAN");
    return fresh;
  }();
  store::StatementShapes shapes;
  std::string_view rest = textOf(data, count);
  while (!rest.empty()) {
    const std::string_view statement = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(statement.size() + 1, rest.size()));
    store::Translation whole;
    const Outcome shortWay =
        outcome([&]() -> const store::Translation& { return shapes.translate(statement, dictionary); });
    const Outcome longWay = outcome([&]() -> const store::Translation& {
      store::Translate(statement, dictionary, whole);
      return whole;
    });
    check(same(shortWay, longWay));
  }
  return 0;
}
